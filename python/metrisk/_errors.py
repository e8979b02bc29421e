"""What is raised where a test cannot be computed."""

from __future__ import annotations


class MetriskError(ValueError):
    """The first element that was refused or could not be read: its ``index``, ``title`` and ``text``."""

    def __init__(self, index: tuple[int, ...], message: str) -> None:
        title, found, text = message.partition(": ")
        self.index = index
        self.title = title if found else ""
        self.text = text if found else message
        super().__init__(f"element {index}: {message}" if index else message)

    def __reduce__(self):  # by its parts, so that it comes from another process
        return MetriskError, (self.index, f"{self.title}: {self.text}" if self.title else self.text)
