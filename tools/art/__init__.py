"""Turns the drawings of resources/art into the pictures of the program."""


class Refusal(Exception):
    """A drawing, stylesheet or manifest that must not be built; the text names the file."""
