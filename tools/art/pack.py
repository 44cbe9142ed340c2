"""Packs pictures as the program carries them: as large as PNG files, and unpacked in a fraction of the time."""

import struct

import zstandard

CHANNELS = {"L": 1, "RGB": 3, "RGBA": 4}
LEVEL = 19


def packed(picture):
    """Width and height (16 bits each) and channels (8 bits), little-endian, then all rows as one zstd frame."""
    header = struct.pack("<HHB", *picture.size, CHANNELS[picture.mode])
    return header + zstandard.ZstdCompressor(level=LEVEL).compress(picture.tobytes())
