# SPDX-License-Identifier: MIT
"""A large program of others that runs on Wayland itself: LibreOffice, with what depends on its keyboard."""
from case import main, wait_for
from harness.accessible import FOCUSED
from native import ACTIVE, CONTROL, A, MenuTest, X

PARAGRAPH = 73
TIMES = 10


class Office(MenuTest):
    tools = ("soffice",)

    @classmethod
    def prepare(cls):
        super().prepare()
        cls.office = cls.session.run("soffice", "--writer", "--norestore", "--nologo", "--nofirststartwizard",
                                     SAL_USE_VCLPLUGIN="gtk3")
        wait_for(cls.has_keyboard, "Writer with the keyboard", limit=120.0, step=0.1)

    @classmethod
    def document(cls):
        """Writer's window, once it is the active one."""
        return next((window for application in cls.bus.applications() if application.name == "soffice"
                     for window in application.children if ACTIVE in window.states), None)

    @classmethod
    def paragraphs(cls):
        window = cls.document()
        return [node for node in window.descendants(12) if node.role == PARAGRAPH] if window else []

    @classmethod
    def has_keyboard(cls):
        return any(FOCUSED in node.states for node in cls.paragraphs())

    def text(self):
        """What is written in the document; nothing while it cannot be read."""
        return "\n".join(node.text() for node in self.paragraphs()) if self.document() else None

    def test_what_is_chosen_by_keyboard_is_done_every_time(self):
        self.pointer = 640, 400
        self.input.move(*self.pointer)
        self.input.tap(A)
        wait_for(lambda: self.text() == "a", "the letter", step=0.05)
        self.input.tap(A, CONTROL)
        self.input.tap(X, CONTROL)
        wait_for(lambda: self.text() == "", "the letter in the clipboard", step=0.05)
        for times in range(1, TIMES + 1):
            self.choose("Edit", "Paste")
            wait_for(lambda count=times: self.text() == "a" * count, f"{times} letters", step=0.05)


if __name__ == "__main__":
    main()
