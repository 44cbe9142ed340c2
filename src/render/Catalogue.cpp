#include "render/Catalogue.h"

#include "document/Rows.h"
#include "toolkit/Text.h"

#include <iterator>

namespace quorrin {

namespace {

// clang-format off

/// An object with its colour picture, mask and black and white picture by name, and its departure if it has one.
#define ART(name, group, color, mask, bw, ...) \
    {name, Group::group, _x_##color, _x_##mask, _x_##bw __VA_OPT__(, Departure::__VA_ARGS__)}
/// The same where all three are named after one base.
#define BASE(name, group, base) ART(name, group, base##Color, base##Mask, base##BW)
/// One picture for every mode.
#define ONE(name, group, art) {name, Group::group, _x_##art, nullptr, nullptr, Departure::Plain}
/// No picture at all.
#define LINES(name, group, departure) {name, Group::group, nullptr, nullptr, nullptr, Departure::departure}

// Maps store the number of a row, so rows are only ever added, and nowhere but at the end.
constexpr CatalogueRow rows[] = {
    /*   1 */ ART("Tree", Plants, TreeColor, TreeColorMask, TreeBW, WhiteCoversInBW),
    /*   2 */ ART("Rock", Objects, rock1color, rock1colormask, rock1bw, WhiteCoversInBW),
    /*   3 */ ART("Water", Terrain, watercolor, TerrainColorMask, waterBW, WhiteCoversInBW),
    /*   4 */ ONE("Mountians", Terrain, Mountians),
    /*   5 */ LINES("Stairs N", Stairs, StairsN),
    /*   6 */ LINES("Stairs S", Stairs, StairsS),
    /*   7 */ LINES("Stairs E", Stairs, StairsE),
    /*   8 */ LINES("Stairs W", Stairs, StairsW),
    /*   9 */ BASE("Barrel Vert", Objects, BarrelVert),
    /*  10 */ ART("Barrel Horz", Objects, BarrelHorzColor, BarrelHozMask, BarrelHorzBW),
    /*  11 */ ART("Sand", Terrain, SandColor, TerrainColorMask, SandBW, WhiteCoversInBW),
    /*  12 */ ART("Castle 1", Buildings, Castle1Color, Castle1ColorMask, Castle1BW, WhiteCoversInBW),
    /*  13 */ ONE("Castle 1 B/W", Buildings, Castle1BW),
    /*  14 */ ART("Castle 2", Buildings, Castle2Color, Castle2ColorMask, Castle2BW, WhiteCoversInBW),
    /*  15 */ ART("Castle 3", Buildings, Castle3Color, Castle3ColorMask, Castle3BW, WhiteCoversInBW),
    /*  16 */ ART("Green Cobblestone", Terrain, CobbleStoneColor2, TerrainColorMask, CobbleStoneBW2),
    /*  17 */ BASE("Grass Terrain", Terrain, GrassObject),
    /*  18 */ BASE("Pine Trees", Plants, PineTrees),
    /*  19 */ BASE("Stump", Plants, Stump),
    /*  20 */ BASE("Road Sign", Objects, RoadSign),
    /*  21 */ BASE("Log Cabin", Buildings, LogCabin),
    /*  22 */ ART("Fruit Tree", Plants, FruitTreeColor, TreeColorMask, FruitTreeBW),
    /*  23 */ ART("Red Cobblestone", Terrain, RedStoneColor, TerrainColorMask, RedStoneBW),
    /*  24 */ ART("Yellow Tile", Terrain, YellowStoneColor, TerrainColorMask, YellowStoneBW),
    /*  25 */ ART("Grey Checker Tile", Terrain, GreyTileColor, TerrainColorMask, GreyTileBW),
    /*  26 */ ART("Blue Cobblestone", Terrain, BlueCobbleColor, TerrainColorMask, BlueCobbleBW),
    /*  27 */ ART("Orange Cobblestone", Terrain, OrangeTileColor, TerrainColorMask, OrangeTileBW),
    /*  28 */ ART("Purple Cobblestone", Terrain, PurpleCheckerColor, TerrainColorMask, PurpleCheckerBW),
    /*  29 */ ART("Green Tile", Terrain, GreenTileColor, TerrainColorMask, GreenTileBW),
    /*  30 */ BASE("Curved Stairs", Stairs, CurvedStairs),
    /*  31 */ BASE("Brown Mushroom", Plants, MushroomBrown),
    /*  32 */ BASE("Red Mushroom", Plants, MushroomRed),
    /*  33 */ ART("Table", Objects, Table, TableMask, TableBW),
    /*  34 */ BASE("Campfire", Objects, CampFire),
    /*  35 */ BASE("Torch Lit", Inventory, Torch),
    /*  36 */ BASE("Torch Out", Inventory, TorchOut),
    /*  37 */ BASE("Chest", Inventory, Chest),
    /*  38 */ BASE("Stone Fireplace", Objects, StoneFireplace),
    /*  39 */ BASE("Bookcase", Objects, BookCase),
    /*  40 */ BASE("Log Pile", Plants, LogPile),
    /*  41 */ BASE("Weapons Rack", Weapons, WeaponRack),
    /*  42 */ BASE("Scroll", Inventory, Scroll),
    /*  43 */ BASE("Red Gem", Inventory, RedGem),
    /*  44 */ BASE("Blue Gem", Inventory, BlueGem),
    /*  45 */ BASE("Green Gem", Inventory, GreenGem),
    /*  46 */ BASE("Bed", Objects, Bed),
    /*  47 */ ART("Book", Inventory, BookColor, BookColorMask, BookBW),
    /*  48 */ BASE("Lantern", Inventory, Lantern),
    /*  49 */ BASE("Skull", Inventory, Skull),
    /*  50 */ BASE("Coffin", Objects, Coffin),
    /*  51 */ BASE("Grain Sack", Inventory, GrainSack),
    /*  52 */ BASE("Pebbles", Terrain, Pebbles),
    /*  53 */ ART("Blue Banner", Objects, BannerBlueColor, BannerMask, BannerBlueBW),
    /*  54 */ ART("Red Banner", Objects, BannerRedColor, BannerMask, BannerRedBW),
    /*  55 */ ART("Green Banner", Objects, BannerGreenColor, BannerMask, BannerGreenBW),
    /*  56 */ BASE("Well", Buildings, Well),
    /*  57 */ BASE("Bridge Vert", Buildings, BridgeVert),
    /*  58 */ BASE("Bridge Horz", Buildings, BridgeHorz),
    /*  59 */ BASE("Dock", Buildings, Dock),
    /*  60 */ BASE("Anvil", Objects, Anvil),
    /*  61 */ ART("Iron Gate", Buildings, GateBW, GateMask, GateBW),
    /*  62 */ BASE("Cave", Terrain, Cave),
    /*  63 */ BASE("Bush", Plants, Bush),
    /*  64 */ BASE("Tombstone", Objects, TombStone),
    /*  65 */ BASE("Stone Gate Closed", Buildings, GateClosed),
    /*  66 */ BASE("Stone Gate Open", Buildings, GateOpen),
    /*  67 */ BASE("Fence Vert", Objects, FenceVert),
    /*  68 */ BASE("Fence Horz", Objects, FenceHorz),
    /*  69 */ BASE("Fairy Stump", Plants, FairyStump),
    /*  70 */ BASE("Mushroom Ring", Plants, MushroomRing),
    /*  71 */ BASE("Empty Wagon", Objects, Wagon),
    /*  72 */ BASE("Hay Wagon", Objects, WagonHay),
    /*  73 */ BASE("Windmill", Buildings, Windmill),
    /*  74 */ BASE("Haystack", Objects, Haystack),
    /*  75 */ BASE("Grain FIeld", Plants, GrainField),
    /*  76 */ BASE("Bee Hive", Objects, BeeHive),
    /*  77 */ BASE("Mushroom House", Buildings, MushroomHouse),
    /*  78 */ BASE("Tower", Buildings, Tower),
    /*  79 */ BASE("Stone Tower", Buildings, StoneTower),
    /*  80 */ BASE("Orc Tower", Buildings, OrcTower),
    /*  81 */ BASE("Orc Hut", Buildings, OrcTent),
    /*  82 */ BASE("Rune Stone", Objects, RuneStone),
    /*  83 */ BASE("Orc Banner", Objects, OrcBanner),
    /*  84 */ BASE("Tent", Buildings, Tent),
    /*  85 */ BASE("Canoe", Inventory, Canoe),
    /*  86 */ BASE("Snowy Peak", Terrain, SnowyPeak),
    /*  87 */ BASE("Volcano", Terrain, volcano),
    /*  88 */ BASE("Stone Gate", Objects, StoneGate),
    /*  89 */ BASE("Dead Tree", Plants, DeadTree),
    /*  90 */ BASE("Rocky Pond", Objects, RockyPond),
    /*  91 */ BASE("Oasis", Objects, Oasis),
    /*  92 */ BASE("Axe", Weapons, Axe),
    /*  93 */ BASE("Sword", Weapons, Sword),
    /*  94 */ BASE("Shield", Weapons, Shield),
    /*  95 */ BASE("Buckler", Weapons, Buckler),
    /*  96 */ BASE("Cottage", Buildings, Cottage),
    /*  97 */ BASE("Peasant Cottage", Buildings, PeasantHouse),
    /*  98 */ BASE("Purple Wand", Weapons, WandPurple),
    /*  99 */ BASE("Bow", Weapons, Bow),
    /* 100 */ BASE("Bow and Arrow", Weapons, BowAndArrow),
    /* 101 */ BASE("Basket", Inventory, Basket),
    /* 102 */ BASE("Apple", Inventory, Apple),
    /* 103 */ BASE("Bread", Inventory, Bread),
    /* 104 */ BASE("Pears", Inventory, Pears),
    /* 105 */ BASE("Ham Bone", Inventory, HamBone),
    /* 106 */ BASE("Pumpkin", Inventory, Pumpkin),
    /* 107 */ BASE("Mine Entrance", Terrain, MineEntrance),
    /* 108 */ BASE("Lute", Inventory, Lute),
    /* 109 */ ART("Red Potion", Inventory, PotionRedColor, PotionMask, PotionRedBW),
    /* 110 */ ART("Blue Potion", Inventory, PotionBlueColor, PotionMask, PotionBlueBW),
    /* 111 */ BASE("Purple Potion", Inventory, PotionPurple),
    /* 112 */ BASE("Grass Clumps", Plants, GrassObjectTop),
    /* 113 */ BASE("Palm Tree", Plants, PalmTree),
    /* 114 */ BASE("Grass Single", Plants, GrassObjectSingle),
    /* 115 */ BASE("Grass Short", Plants, GrassShort),
    /* 116 */ BASE("Cattails", Plants, Cattails),
    /* 117 */ BASE("Boulder", Objects, Boulder),
    /* 118 */ BASE("Scallop Shell", Inventory, scallop),
    /* 119 */ BASE("Starfish", Inventory, StarFish),
    /* 120 */ BASE("Candle", Inventory, Candle),
    /* 121 */ BASE("Dagger", Weapons, Dagger),
    /* 122 */ BASE("Key", Inventory, Key),
    /* 123 */ BASE("Map X", Objects, MapX),
};

// clang-format on

static_assert(std::size(rows) == lastCatalogueObject);

} // namespace

std::span<const CatalogueRow> catalogue()
{
    return rows;
}

const Rows& objectRows()
{
    static const Rows captions = [] {
        Rows all{"Blank"};
        for (const auto& row : rows)
            all.emplace_back(row.name);
        for (std::int64_t object = lastCatalogueObject + 1; object <= lastObject; ++object)
            all.push_back("Character " + Str(characterOfObject(object)));
        return all;
    }();
    return captions;
}

} // namespace quorrin
