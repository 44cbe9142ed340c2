#!/usr/bin/python3
"""The check of the includes refuses each kind of fault and nothing else. usage: include_faults.py tools"""

import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, sys.argv.pop())
from check_includes import faults

# A file, one line of it, and whether it may stand there.
LINES = [
    ("edit/Panel.cpp", '#include "document/Window1.h"', True),
    ("edit/Panel.cpp", '#include "output/Export.h"', False),
    ("document/Map.h", '#include "edit/HitTest.h"', False),
    ("document/Map.h", "#include <edit/HitTest.h>", False),
    ("edit/Panel.cpp", '#include "../output/Export.h"', False),
    ("edit/Panel.cpp", '#include "./HitTest.h"', False),
    ("edit/Panel.cpp", '#include "toolkit/../output/Export.h"', False),
    ("edit/Panel.cpp", '#include "HitTest.h"', False),
    ("edit/Panel.cpp", "#include PANEL_HEADER", False),
    ("render/Art.cpp", '#include "ArtPictures.inc"', True),
    ("edit/Panel.cpp", "#include <queue>", True),
    ("edit/Panel.cpp", "#include <QPainter>", False),
    ("edit/Panel.cpp", "#include <QtGui/QPainter>", False),
    ("edit/Panel.cpp", "#  include <QtEndian>", False),
    ("edit/Panel.cpp", "#include <qpainter.h>", False),
    ("edit/Panel.cpp", '#include "QString"', False),
    ("toolkit/Picture.cpp", '#include "QString"', False),
    ("toolkit/Picture.cpp", "#include <QtGui/QPainter>", True),
    ("toolkit/Picture.h", "#include <QPainter>", False),
    ("toolkit/Picture.h", "class QPainter;", False),
    ("toolkit/Picture.h", "void paint(struct QPoint* at); // there", False),
    ("toolkit/Picture.h", "QT_BEGIN_NAMESPACE", False),
    ("toolkit/Picture.h", "namespace Qt { enum Key : int; }", False),
    ("toolkit/Picture.h", "/* As QPainter does. */ struct QtBridge; // not a QPainter", True),
    ("toolkit/Picture.cpp", 'auto version = QUORRIN_VERSION "QPainter";', True),
    ("batch/main.cpp", 'auto version = QUORRIN_VERSION "QPainter";', True),
    ("toolkit/QtBridge.h", "class QPainter;", True),
    ("desktop/View.h", "class QWidget;", True),
    ("desktop/View.cpp", '#include "toolkit/QtBridge.h"', True),
    ("desktop/View.cpp", '#include "toolkit/Painting.h"', False),
    ("edit/Panel.cpp", '#include "toolkit/QtBridge.h"', False),
]


class IncludeFaults(unittest.TestCase):
    def test_lines(self):
        for file, line, fine in LINES:
            with self.subTest(file=file, line=line), tempfile.TemporaryDirectory() as source:
                path = Path(source, file)
                path.parent.mkdir()
                path.write_text(f"#pragma once\n{line}\n", encoding="utf-8")
                self.assertEqual(not list(faults(Path(source))), fine)


unittest.main()
