#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether scripts/check_layers.py notices what may not be included, or named, where it is."""
import unittest

from tree import TreeTest

SCRIPT = "scripts/check_layers.py"
DEFINITION = "Desktop openDesktop(int& argc, char** argv)\n{\n    return {};\n}\n"
TREE = {
    "foundation/Clock.h": "#include <QString>\n#include <optional>\n#include <QtGlobal>\n",
    "prefs/Window.cpp": '#include "prefs/Window.h"\n#include "shortcut/Recorder.h"\n#include "mouse/Button.h"\n',
    "app/Desktop.h": "[[nodiscard]] Desktop openDesktop(int& argc, char** argv);\n",
    "app/main.cpp": "int main(int argc, char** argv)\n{\n    const Desktop desktop = openDesktop(argc, argv);\n}\n",
    "tools/Report.cpp": '#include "tools/Report.h"\n#include "app/Inspection.h"\n#include <cstdio>\n',
    "platform/qt/CMakeLists.txt": "tarnwick_add_library(platform_qt SOURCES Look.cpp LINK tarnwick_app Qt6::Widgets)\n",
    "platform/qt/Look.cpp": '#include "platform/qt/Look.h"\n#include "app/Desktop.h"\n#include <unistd.h>\n',
    "platform/macos/CMakeLists.txt":
        "tarnwick_add_library(platform SOURCES openDesktop.cpp LINK tarnwick_platform_qt)\n",
    "platform/macos/openDesktop.cpp": DEFINITION,
    "platform/linux/CMakeLists.txt":
        "tarnwick_add_library(platform # all (of it)\n    SOURCES\n        openDesktop.cpp\n"
        "    LINK tarnwick_platform_qt tarnwick_reading tarnwick_press)\n",
    "platform/linux/openDesktop.cpp":
        '#include "platform/linux/bus/Bus.h"\n#include "platform/linux/reading/Tree.h"\n'
        '#include "platform/qt/Look.h"\n#include <sys/socket.h>\n' + DEFINITION,
    "platform/linux/reading/CMakeLists.txt":
        "tarnwick_add_library(reading SOURCES Tree.cpp LINK tarnwick_bus tarnwick_platform_qt)\n",
    "platform/linux/reading/Tree.cpp":
        '#include "platform/linux/reading/parts/Row.h"\n#include "platform/linux/bus/Bus.h"\n'
        '#include "platform/qt/Look.h"\n',
    "platform/linux/press/CMakeLists.txt": "tarnwick_add_library(press SOURCES Press.cpp LINK tarnwick_reading)\n",
    "platform/linux/press/Press.cpp": '#include "platform/linux/bus/Bus.h"\n',
    "platform/linux/bus/CMakeLists.txt": "tarnwick_add_library(bus SOURCES Bus.cpp LINK tarnwick_app)\n",
    "platform/linux/bus/Bus.cpp": '#include "platform/linux/bus/Bus.h"\n',
}


class CheckLayers(TreeTest):
    copied = (SCRIPT,)

    def setUp(self):
        super().setUp()
        for name, text in TREE.items():
            self.write(name, text)

    def noticed(self, name, line, expected):
        """Whether this line at the end of a file, and nothing else, is told of."""
        before = TREE.get(name, "")
        with self.subTest(f"{name}: {line}"):
            path = self.write(name, f"{before}{line}\n")
            problem, summary = self.assert_fails(SCRIPT).splitlines()
            self.assertTrue(problem.startswith(f"{name}:{before.count(chr(10)) + 1}: "), problem)
            self.assertIn(expected, problem)
            self.assertIn("1 problems", summary)
            self.write(name, before) if before else path.unlink()

    def not_noticed(self, name, line):
        with self.subTest(f"{name}: {line}"):
            self.write(name, f"{TREE[name]}{line}\n")
            self.assertIn(", 0 problems", self.assert_passes(SCRIPT))
            self.write(name, TREE[name])

    def test_passes_where_all_is_in_its_place(self):
        self.assertIn("11 files checked, 0 problems", self.assert_passes(SCRIPT))

    def test_fails_where_there_is_no_file(self):
        for name in TREE:
            (self.root / name).unlink()
        self.assertIn("no source file found", self.assert_fails(SCRIPT))

    def test_notices_an_arrow_that_runs_up(self):
        for name, header in (
                ("foundation/Clock.h", "app/Desktop.h"), ("foundation/Clock.h", "ax/UIElement.h"),
                ("prefs/Window.cpp", "app/SettingsKeys.h"), ("prefs/Window.cpp", "platform/qt/Look.h"),
                ("app/main.cpp", "platform/linux/X11Focus.h"), ("app/main.cpp", "tests/FairTimer.h"),
                ("tools/Report.cpp", "platform/linux/AtspiBus.h"), ("tools/Report.cpp", "platform/qt/Look.h"),
                ("platform/qt/Look.cpp", "platform/linux/LinuxLook.h"),
                ("platform/qt/Look.cpp", "platform/linux/bus/Bus.h"),
                ("platform/qt/Look.cpp", "platform/macos/MacLook.h"),
                ("platform/linux/openDesktop.cpp", "platform/macos/MacSession.h"),
                ("platform/linux/bus/Bus.cpp", "platform/macos/MacSession.h"),
                ("platform/macos/openDesktop.cpp", "platform/linux/LinuxSession.h"),
                ("platform/linux/openDesktop.cpp", "tools/Report.h"),
                ("platform/qt/Look.cpp", "bench/Clock.h"), ("platform/qt/Look.cpp", "tests/FairTimer.h")):
            for way in ("include", "import"):
                self.noticed(name, f'#{way} "{header}"', f"/ may not include {header}")

    def test_notices_a_header_by_another_way(self):
        for header in ('<platform/linux/X11Focus.h>', '<ax/UIElement.h>', '<foundation/Clock.h>',
                       '"../platform/linux/X11Focus.h"', '"foundation/../platform/linux/X11Focus.h"',
                       '<../platform/linux/X11Focus.h>', '<sys/../platform/linux/X11Focus.h>',
                       '"./foundation/Clock.h"', '"foundation/./Clock.h"', '"foundation//Clock.h"',
                       '"/foundation/Clock.h"', '"Clock.h"', '"linux/X11Focus.h"', '"unistd.h"', '"sys/socket.h"'):
            for name in ("foundation/Clock.h", "platform/qt/Look.cpp", "platform/linux/openDesktop.cpp"):
                self.noticed(name, f"#include {header}", f"path from the top: {header[1:-1]}")
        self.noticed("platform/qt/Look.cpp", '#include "moc_Other.cpp"', "path from the top: moc_Other.cpp")
        self.not_noticed("platform/qt/Look.cpp", '#include "moc_Look.cpp"')
        self.noticed("platform/qt/Look.cpp", '#include "foundation/Clock.cpp"', "not included: foundation/Clock.cpp")
        for written in ("HEADER", "\\"):
            self.noticed("foundation/Clock.h", f"#  include {written}", "an include names its header")
        self.noticed("foundation/Clock.h", '/* a */ # /* b */ include "app/Desktop.h"', "may not include")
        self.noticed("foundation/Clock.h", '#include_next "app/Desktop.h"', "may not include")

    def test_notices_a_system_header(self):
        for header in ("unistd.h", "sys/socket.h", "X11/Xlib.h", "xcb/xcb.h", "glib.h", "systemd/sd-bus.h",
                       "objc/objc.h", "windows.h", "QDBusConnection", "QtDBus", "QX11Info",
                       "QtGui/qpa/qplatformwindow.h", "ApplicationServices/ApplicationServices.h"):
            for name in ("foundation/Clock.h", "app/main.cpp", "tools/Report.cpp"):
                self.noticed(name, f"#include <{header}>", f"system headers belong to platform/: {header}")
            self.not_noticed("platform/linux/openDesktop.cpp", f"#include <{header}>")

    def test_leaves_alone_what_is_a_comment(self):
        for line in ('// #include "app/Desktop.h"', '/*\n#include "app/Desktop.h"\n*/', "// openDesktop()"):
            self.not_noticed("foundation/Clock.h", line)

    def test_takes_no_text_for_a_comment(self):
        for text in ('"/*"', '"\\"/*"', "'\"'; auto b = \"/*\"", 'R"(/*)"', 'R"x("/*)x"', '"https://a"; auto b = "/*"'):
            before = f"auto a = {text};"
            with self.subTest(before):
                self.write("foundation/Text.h", f'{before}\n#include "app/Desktop.h"\nauto end = "*/";\n')
                self.assertIn("foundation/Text.h:2: ", self.assert_fails(SCRIPT))

    def test_notices_a_condition_and_a_function_of_a_system(self):
        for line in ("#ifdef Q_OS_LINUX", "#if defined(__APPLE__)"):
            self.noticed("prefs/Window.cpp", line, "no condition on an operating system")
            self.not_noticed("platform/qt/Look.cpp", line)
        for name in ("prefs/Window.cpp", "platform/qt/Look.cpp", "platform/linux/bus/Bus.cpp"):
            self.noticed(name, "auto copied = TISCopyCurrentKeyboardInputSource();", "platform/macos/ only")
        self.not_noticed("platform/macos/openDesktop.cpp", "auto copied = TISCopyCurrentKeyboardInputSource();")

    def test_notices_another_call_of_openDesktop(self):
        for line in ("openDesktop(argc, argv);", "if (openDesktop(argc, argv).clock) {", "run(openDesktop(argc, argv),",
                     "openDesktop(argc,", "const auto open = &openDesktop;", "auto open = openDesktop",
                     "void openDesktop(int& argc, char** argv) {", "Desktop openDesktop(int& argc, char** argv);"):
            for name in ("prefs/Window.cpp", "app/main.cpp", "app/Desktop.h", "tools/Report.cpp",
                         "platform/qt/Look.cpp", "platform/linux/openDesktop.cpp", "platform/macos/openDesktop.cpp"):
                self.noticed(name, line, "only app/main.cpp calls openDesktop(), once")

    def test_notices_a_definition_of_openDesktop_too_many_or_too_few(self):
        for system in ("linux", "macos"):
            name = f"platform/{system}/openDesktop.cpp"
            for number, text in ((0, ""), (2, DEFINITION + DEFINITION),
                                 (2, DEFINITION + DEFINITION.replace("Desktop o", "Desktop\no"))):
                with self.subTest(system=system, number=number):
                    self.write(name, text)
                    self.assertIn(f"platform/{system}/: {number} definitions", self.assert_fails(SCRIPT))
            self.write(name, DEFINITION)
            other = self.write(f"platform/{system}/Other.cpp", DEFINITION)
            self.assertIn(f"platform/{system}/: 2 definitions", self.assert_fails(SCRIPT))
            other.unlink()
        self.noticed("platform/qt/Look.cpp", DEFINITION, "only app/main.cpp calls openDesktop(), once")

    def test_notices_a_room_that_is_not_linked(self):
        for name, header in (("platform/linux/bus/Bus.cpp", "platform/linux/reading/Tree.h"),
                             ("platform/linux/bus/Bus.cpp", "platform/linux/LinuxSession.h"),
                             ("platform/linux/bus/Bus.cpp", "platform/qt/Look.h"),
                             ("platform/linux/reading/Tree.cpp", "platform/linux/press/Press.h"),
                             ("platform/linux/reading/parts/Row.h", "platform/linux/press/Press.h")):
            self.noticed(name, f'#include "{header}"', f"and may not include {header}")
        # What is linked by what is linked may be included.
        self.not_noticed("platform/linux/press/Press.cpp", '#include "platform/qt/Look.h"')

    def test_notices_links_that_run_in_a_circle(self):
        self.write("platform/linux/bus/CMakeLists.txt",
                   "tarnwick_add_library(bus SOURCES Bus.cpp LINK tarnwick_press)\n")
        output = self.assert_fails(SCRIPT)
        for room in ("bus", "reading", "press"):
            self.assertIn(f"platform/linux/{room}/CMakeLists.txt: its links run in a circle", output)

    def test_notices_a_folder_that_no_layer_or_target_has(self):
        for name in ("platform/wayland/Session.cpp", "platform/Session.cpp"):
            path = self.write(name, "\n")
            self.assertIn(f"{name}:1: no layer, or no target", self.assert_fails(SCRIPT))
            path.unlink()
        self.write("platform/wayland/CMakeLists.txt", "tarnwick_add_library(wayland SOURCES Session.cpp)\n")
        path = self.write("platform/wayland/Session.cpp", "\n")
        self.assertIn("wayland/Session.cpp:1: no layer, or no target", self.assert_fails(SCRIPT))
        path.unlink()
        (self.root / "platform/qt/CMakeLists.txt").unlink()
        self.assertIn("platform/qt/Look.cpp:1: no layer, or no target", self.assert_fails(SCRIPT))


if __name__ == "__main__":
    unittest.main()
