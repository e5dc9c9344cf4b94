// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// Numbers and names of the accessibility protocol, as its interface descriptions define them.
namespace tarnwick::atspi {

enum Role : quint32 {
    RoleCheckBox = 7,
    RoleCheckMenuItem = 8,
    RoleDialog = 16,
    RoleFrame = 23,
    RoleList = 31,
    RoleMenu = 33,
    RoleMenuBar = 34,
    RoleMenuItem = 35,
    RolePopupMenu = 41,
    RoleRadioMenuItem = 45,
    RoleSeparator = 50,
    RoleTable = 55,
    RoleTearoffMenuItem = 59,
    RoleTerminal = 60,
    RoleText = 61,
    RoleTree = 65,
    RoleTreeTable = 66,
    RoleWindow = 69,
    RoleDocumentFrame = 82,
    RoleDocumentSpreadsheet = 92,
    RoleDocumentPresentation = 93,
    RoleDocumentText = 94,
    RoleDocumentWeb = 95,
    RoleDocumentEmail = 96,
    RoleListBox = 98,
};

/// Bit n of the state words is state n.
enum State : quint32 {
    StateActive = 1,
    StateChecked = 4,
    StateEnabled = 8,
    StateSensitive = 24,
    StateVisible = 30,
    StateManagesDescendants = 31,
};

constexpr bool has(quint64 states, State state)
{
    return (states >> state & 1U) != 0;
}

inline constexpr const char* AccessibleInterface = "org.a11y.atspi.Accessible";
inline constexpr const char* ActionInterface = "org.a11y.atspi.Action";
inline constexpr const char* ComponentInterface = "org.a11y.atspi.Component";
inline constexpr const char* ApplicationInterface = "org.a11y.atspi.Application";
inline constexpr const char* PropertiesInterface = "org.freedesktop.DBus.Properties";
inline constexpr const char* SocketInterface = "org.a11y.atspi.Socket";
inline constexpr const char* RegistryService = "org.a11y.atspi.Registry";
inline constexpr const char* RootPath = "/org/a11y/atspi/accessible/root";
inline constexpr const char* NullPath = "/org/a11y/atspi/null";

} // namespace tarnwick::atspi
