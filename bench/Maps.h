#pragma once

#include "document/Window1.h"

/// The maps that are measured, the same on every run. A square's content depends on its place alone.
enum class Density {
    /// White, nothing on it.
    Blank,
    /// Parchment and a grid; a third of the squares used: an object, on every second one another above it, on some
    /// walls, doors and markers.
    Ordinary,
    /// Everything at once: both layers full, every wall and door, a marker on each square, blurry grid, four borders,
    /// the user picture above it all.
    Densest,
};

/// Puts such a map into a window that holds a new document, and composes it.
void fillMap(quorrin::Window1& window, Density density);
