"""Refuses what rsvg-convert would draw wrongly without a word."""

import re
import xml.etree.ElementTree as ET

from . import Refusal

NUMBER = r"[+-]?(?:\d+\.?\d*|\.\d+)(?:[eE][+-]?\d+)?"
PATH_ARGUMENTS = {"M": 2, "L": 2, "H": 1, "V": 1, "C": 6, "S": 4, "Q": 4, "T": 2, "A": 7, "Z": 0}
OBJECT_ELEMENTS = {"svg", "g", "defs", "use", "path", "rect", "circle", "ellipse", "line", "polyline",
                   "polygon", "clipPath", "title", "desc"}
LENGTHS = {"x", "y", "width", "height", "cx", "cy", "r", "rx", "ry", "x1", "y1", "x2", "y2"}
OBJECT_ATTRIBUTES = LENGTHS | {"id", "class", "href", "d", "points", "transform", "viewBox", "clip-path",
                               "fill-rule", "clip-rule", "stroke-linecap", "stroke-linejoin"}
CSS_PROPERTIES = {"fill", "stroke", "stroke-width", "stroke-opacity", "fill-opacity", "opacity", "display",
                  "stroke-linejoin", "stroke-linecap", "stroke-dasharray", "mix-blend-mode"}
TRANSFORM = re.compile(rf"\s*(?:(?:matrix|translate|scale|rotate|skewX|skewY)\s*\(\s*{NUMBER}"
                       rf"(?:[\s,]+{NUMBER}|(?=[+-]){NUMBER})*\s*\)[\s,]*)+")


def local(name):
    return name.rsplit("}", 1)[-1]


def path_fault(data):
    """What is wrong with path data, or None."""
    skip = re.compile(r"\s*,?\s*")
    number, flag = re.compile(NUMBER), re.compile("[01]")
    at, first = skip.match(data).end(), True
    if at == len(data):
        return "is empty"
    while at < len(data):
        command = data[at].upper()
        if command not in PATH_ARGUMENTS or (first and command != "M"):
            return f"has a fault at '{data[at:at + 12]}'"
        at, first, count = skip.match(data, at + 1).end(), False, PATH_ARGUMENTS[command]
        groups = 0
        while count and (groups == 0 or (at < len(data) and not data[at].isalpha())):
            for index in range(count):
                token = (flag if command == "A" and index in (3, 4) else number).match(data, at)
                if not token:
                    return f"has a fault at '{data[at:at + 12]}'" if at < len(data) else "ends too early"
                at = skip.match(data, token.end()).end()
            groups += 1
    return None


def value_fault(name, value, painted_by_class):
    """What is wrong with an attribute that rsvg would drop without a word, or None."""
    if name == "d":
        return path_fault(value)
    if name == "points":
        numbers = re.findall(NUMBER, value)
        rest = re.sub(NUMBER, "", value).replace(",", "").strip()
        return "is no list of points" if rest or len(numbers) < 4 or len(numbers) % 2 else None
    if name == "transform" and not TRANSFORM.fullmatch(value):
        return "is no transform"
    if name in LENGTHS and not re.fullmatch(NUMBER + ("" if painted_by_class else "%?"), value.strip()):
        return "is no number"
    return None


def check_drawing(root, path, classes, shared_ids, painted_by_class):
    """Refuses bad elements, attributes, classes and references of a parsed drawing.

    classes: the names known to both stylesheets; shared_ids: the ids of defs.svg;
    painted_by_class: true for objects, false for pages, which may carry attributes and filters.
    """
    ids = [element.get("id") for element in root.iter() if element.get("id")]
    twice = {name for name in ids if ids.count(name) > 1}
    if twice:
        raise Refusal(f"{path}: id {', '.join(sorted(twice))} given twice")
    known = {f"#{name}" for name in ids} | {f"defs.svg#{name}" for name in shared_ids}
    for element in root.iter():
        tag = local(element.tag)
        if tag in ("style", "script", "image", "text", "foreignObject"):
            raise Refusal(f"{path}: element {tag} is not allowed")
        if painted_by_class and tag not in OBJECT_ELEMENTS:
            raise Refusal(f"{path}: element {tag} is not allowed in an object")
        for raw, value in element.attrib.items():
            check_attribute(path, tag, local(raw), value, classes, known, painted_by_class)


def check_attribute(path, tag, name, value, classes, known, painted_by_class):
    where = f"{path}: <{tag}> {name}=\"{value[:60]}\""
    if name == "style" or "var(" in value:
        raise Refusal(f"{where} is not allowed")
    if painted_by_class and name not in OBJECT_ATTRIBUTES:
        raise Refusal(f"{where}: objects are painted by class alone")
    if name == "class":
        unknown = [word for word in value.split() if word not in classes]
        if unknown:
            raise Refusal(f"{where}: class {unknown[0]} is not in both stylesheets")
    references = [value] if name == "href" else re.findall(r"url\(\s*['\"]?(.*?)['\"]?\s*\)", value)
    for reference in references:
        if reference not in known:
            raise Refusal(f"{where}: {reference} leads nowhere")
    fault = value_fault(name, value, painted_by_class)
    if fault:
        raise Refusal(f"{where} {fault}")


def stylesheet_classes(path, shared_ids):
    """The class names of a stylesheet, after checking it rule by rule."""
    text = re.sub(r"/\*.*?\*/", "", path.read_text(), flags=re.S)
    classes = set()
    while text.strip():
        rule = re.match(r"\s*([^{}@;]+)\{([^{}]*)\}", text)
        if not rule:
            raise Refusal(f"{path}: no rule at '{text.strip()[:40]}'")
        for selector in rule[1].split(","):
            if not re.fullmatch(r"svg|\.[A-Za-z][\w-]*", selector.strip()):
                raise Refusal(f"{path}: selector '{selector.strip()}' is neither svg nor one class")
            classes.add(selector.strip().lstrip("."))
        for declaration in filter(str.strip, rule[2].split(";")):
            check_declaration(path, declaration, shared_ids)
        text = text[rule.end():]
    return classes - {"svg"}


def check_declaration(path, declaration, shared_ids):
    name, _, value = (part.strip() for part in declaration.partition(":"))
    good = re.fullmatch(rf"#[0-9a-fA-F]{{3}}|#[0-9a-fA-F]{{6}}|none|round|butt|square|miter|multiply|screen|overlay|(?:{NUMBER}[ ,]*)+|"
                        r"url\(defs\.svg#([\w-]+)\)", value)
    if name not in CSS_PROPERTIES or not good or (good[1] and good[1] not in shared_ids):
        raise Refusal(f"{path}: '{declaration.strip()}' is not understood")


def parse(path):
    try:
        return ET.parse(path).getroot()
    except FileNotFoundError:
        raise Refusal(f"{path}: there is no such drawing") from None
    except (ET.ParseError, UnicodeDecodeError) as error:
        raise Refusal(f"{path}: {error}") from error
