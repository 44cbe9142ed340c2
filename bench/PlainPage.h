#pragma once

#include "document/Window1.h"

#include <QImage>

/// Composes a landscape page as one would at first: painter calls in the order of the layers, for each square of each
/// layer one fresh tile picture. Pictures come ready for drawing, white and masks dealt with once for all pages, as the
/// program's own do. It knows the settings that the measured maps have.
QImage plainPage(quorrin::Window1& window);
