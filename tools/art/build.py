"""Builds the rows whose sources changed, on all cores, and the lists the program needs."""

import hashlib
import json
import os
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from . import Refusal, pictures
from .drawing import Studio
from .manifest import LARGE
from .pack import packed

RECORD = "built.json"
JPEG_QUALITY = 78


def tool_bytes():
    return b"".join(p.read_bytes() for p in sorted(Path(__file__).parent.glob("*.py")))


def key_of(row, source, common):
    path = row.file(source)
    drawing = path.read_bytes() if path.exists() else b"no drawing"
    return hashlib.sha1(common + repr(row).encode() + drawing).hexdigest()


def write_if_changed(path, text):
    if not path.exists() or path.read_text() != text:
        path.write_text(text)


def stale_rows(rows, source, out, common, record):
    def fresh(row):
        old = record.get(row.title)
        return (old and old["key"] == key_of(row, source, common)
                and all((out / name).exists()
                            for files in row.files().values() for file in files for name in (file, carried(file))))
    return [row for row in rows if not fresh(row)]


def build_rows(rows, source, out):
    """Brings the pictures of rows in folder out up to date; returns the refusals as texts."""
    out = Path(out)
    (out / LARGE).mkdir(parents=True, exist_ok=True)
    studio = Studio(source, out)
    record_path = out / RECORD
    record = json.loads(record_path.read_text()) if record_path.exists() else {}
    common = studio.inputs() + tool_bytes()
    stale = stale_rows(rows, source, out, common, record)

    def work(row):
        try:
            return row, pictures.make(studio, row), None
        except Refusal as refusal:
            return row, None, str(refusal)

    refusals = []
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for row, made, refusal in pool.map(work, stale):
            if refusal:
                refusals.append(refusal)
                record.pop(row.title, None)
            else:
                record[row.title] = {"key": key_of(row, source, common), **save(row, made, out)}
    refusals += shared_mask_faults(rows, source, record)
    write_if_changed(record_path, json.dumps(record, indent=1, sort_keys=True))
    return sorted(set(refusals))


def save(row, made, out):
    """Writes a row's pictures; returns what tells its mask from another."""
    for name, files in row.files().items():
        for picture, file in zip(made[name], files):
            path = out / file
            if path.suffix == ".jpg":
                # The noise of a page would fill megabytes without loss.
                picture.save(path, quality=JPEG_QUALITY, optimize=True)
            else:
                picture.save(path, compress_level=1)
                (out / carried(file)).write_bytes(packed(picture))
    mask = made[row.mask][0] if row.mask else None
    return {"mask": hashlib.sha1(mask.tobytes()).hexdigest() if mask else None}


def carried(file):
    """The file that the program carries for a picture that is shown as `file`."""
    return file if file.endswith(".jpg") else file.removesuffix(".png") + ".art"


def shared_mask_faults(rows, source, record):
    first, faults = {}, []
    for row in rows:
        if not row.mask or row.title not in record:
            continue
        other = first.setdefault(row.mask, row)
        if record[other.title]["mask"] != record[row.title]["mask"]:
            faults.append(f"{row.file(source)}: {row.mask} differs from that of {other.file(source)}, which shares it")
    return faults


def write_lists(rows, out):
    """art.qrc for the resource compiler, and ArtPictures.inc with one macro call a picture."""
    files = sorted({carried(file) for row in rows for pair in row.files().values() for file in pair})
    entries = "".join(f'  <file alias="{file}">{file}</file>\n' for file in files)
    write_if_changed(Path(out) / "art.qrc", f'<RCC>\n <qresource prefix="/art">\n{entries} </qresource>\n</RCC>\n')
    names = sorted({name for row in rows for name in row.files()})
    cursors = {row.colour for row in rows if row.kind == "cursor"}
    calls = "".join(f"ART_{'CURSOR' if name in cursors else 'PICTURE'}({name})\n" for name in names)
    write_if_changed(Path(out) / "ArtPictures.inc",
                     "// Define ART_PICTURE(name), and ART_CURSOR(name) where cursors differ, before including.\n"
                     "#ifndef ART_CURSOR\n#define ART_CURSOR(name) ART_PICTURE(name)\n#endif\n"
                     f"{calls}#undef ART_CURSOR\n#undef ART_PICTURE\n")
