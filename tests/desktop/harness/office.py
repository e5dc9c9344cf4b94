# SPDX-License-Identifier: MIT
"""LibreOffice Writer, where it is installed."""
import itertools
import shutil

from .applications import Application
from .waiting import wait_for

PROGRAM = shutil.which("libreoffice")

_PARAGRAPH = 73
_NO_QUESTIONS = """<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="ShowTipOfTheDay" oor:op="fuse"><value>false</value>
</prop></item><item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="FirstRun" oor:op="fuse">
<value>false</value></prop></item></oor:items>
"""
_numbers = itertools.count(1)


class Writer(Application):
    """With an empty document, and each with settings of its own: it asks about what one that was killed has left."""

    def __init__(self, session):
        profile = session.directory / "home" / f"office{next(_numbers)}"
        settings = profile / "user" / "registrymodifications.xcu"
        settings.parent.mkdir(parents=True)
        settings.write_text(_NO_QUESTIONS)
        super().__init__(session, [PROGRAM, "--writer", "--norestore", "--nologo", f"-env:UserInstallation=file://{profile}"],
                         "Untitled 1 - LibreOffice Writer", SAL_USE_VCLPLUGIN="gtk3")

    def _first_window(self, title):
        window = self._session.screen.window_titled(title, limit=120.0)
        self._pid = window.pid
        return window

    @property
    def pid(self):
        """Of what the launcher has started, and waits for."""
        return self._pid

    def bar_items(self, bus):
        """The bar is there long before its entries are."""
        return wait_for(lambda: super(Writer, self).bar_items(bus), "the entries of LibreOffice's bar", 30.0, step=0.1)

    def text(self, bus):
        return "".join(node.text() for node in self.accessible(bus).descendants(12) if node.role == _PARAGRAPH)
