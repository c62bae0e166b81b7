"""What is raised and warned about texts."""

import sys
import warnings


class UnitError(ValueError):
    """A text that is not understood, or units that do not convert into each other.

    message     one sentence
    text        the typed text that it is about; empty when it is about none
    position    where in the text, in characters
    length      so many characters; 0 when no part of the text is meant
    suggestion  a text that would be understood, or an empty one
    """

    def __init__(
        self, message: str, text: str | None = "", position: int = 0, length: int = 0, suggestion: str = ""
    ) -> None:
        super().__init__(message, text, position, length, suggestion)
        self.message = message
        self.text = text or ""
        self.position = position
        self.length = length
        self.suggestion = suggestion

    def __str__(self) -> str:
        if not self.suggestion:
            return self.message
        return f'{self.message} Did you mean "{self.suggestion}"?'


class UnitWarning(UserWarning):
    """Units that could mean another quantity, in which they convert in another way: F to C as a difference."""


def warn_caller(message: str, kind: type[Warning] = UnitWarning) -> None:
    """A warning at the line that called the package, from however deep within it."""
    level = 1
    while sys._getframe(level - 1).f_globals.get("__name__", "").startswith("uom.") and sys._getframe(level - 1).f_back:
        level += 1
    warnings.warn(message, kind, stacklevel=level)


def warn(note: str) -> None:
    """Called by the extension: what else the units of a conversion could mean."""
    warn_caller(f"{note} quantity= says which one is meant.")
