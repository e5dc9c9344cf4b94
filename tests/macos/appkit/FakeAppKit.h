// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>

/// AppKit as far as the Objective-C++ files use it, without a screen: it keeps what it is told, sends
/// delegates what they are sent after the system's documentation, and takes for a fault what that forbids.
/// GUI thread only.
namespace tarnwick::appkit {

struct ShownItem
{
    const void* native = nullptr;
    QString title;
    QString attributedTitle; ///< empty without one
    QString titleFont;       ///< of the attributed title
    std::optional<double> strokeWidth;
    QString key;
    quint64 mask = 0;
    qint64 tag = 0;
    qint64 state = 0;
    bool separator = false;
    bool enabled = true;
    bool alternate = false;
    bool hasSubmenu = false;
    bool keysMayMove = true; ///< to where another layout, or the other direction of writing, has them
};

struct Key
{
    quint64 modifiers = 0;
    quint16 code = 0;
    QString characters;
    QString unmodified;
};

/// A menu of the system, not owned.
class ShownMenu
{
public:
    explicit ShownMenu(void* menu) : _menu(menu) {}

    [[nodiscard]] QString title() const;
    [[nodiscard]] QString font() const;
    [[nodiscard]] bool autoenables() const;
    [[nodiscard]] QList<ShownItem> items() const;
    /// The submenu of an item, filled and told that it opens.
    [[nodiscard]] ShownMenu open(int index) const;
    void close() const;
    /// -1 is none.
    void highlight(int index) const;
    /// Whether a key is one of the menu's, and whether a target was named for it.
    [[nodiscard]] std::pair<bool, bool> hasKeyEquivalent(const Key& key) const;
    /// The action is sent once the menus have closed.
    void choose(int index) const;
    /// As the system opens that of a status item.
    void popUp() const;

private:
    void* _menu;
};

struct PopUp
{
    int item = -1; ///< at which it opens, -1 for none; -2 for one of another menu
    QPointF location;
    bool inView = false;
};

struct ShownImage
{
    QByteArray data;
    QSizeF size;
    bool isTemplate = false;
};

struct ShownStatusItem
{
    double length = 0;
    std::optional<ShownImage> image;
    std::optional<ShownImage> alternateImage;
    std::optional<ShownMenu> menu;
};

struct ShownAlert
{
    quint64 style = 0;
    QString message;
    QString informative;
    QStringList buttons;
};

struct System
{
    std::function<void(ShownMenu)> whileOpen; ///< what the person does with a pop-up
    QList<PopUp> popUps;
    QStringList missingFonts; ///< families
    QStringList journal;      ///< what the application and its windows were told
    QStringList faults;       ///< what the system would have refused
    bool cancelled = false;   ///< the tracking of the pop-up

    QList<qint64> alertAnswers; ///< of alerts and of sheets, one after the other
    QList<ShownAlert> alerts;
    std::function<void()> whileSheet; ///< what happens before a sheet is answered

    bool modal = false;
    std::optional<std::pair<QString, int>> active; ///< name and process
    bool namesActive = true;                       ///< by the call of earlier systems
    std::optional<bool> reducesMotion;             ///< nothing: the system cannot be asked
    QStringList opened;                            ///< URLs
    int serviceStatus = 0;                         ///< of SMAppService
};

/// The only one.
[[nodiscard]] System& theSystem();
/// As it is at the start.
void reset();

[[nodiscard]] QList<ShownStatusItem> statusItems();
/// From now on the system has the class that login items are registered with.
void addAppService();
/// Another application comes to the front.
void tellOfActivation();

/// What is autoreleased while there is one goes with it.
class Pool
{
public:
    Pool();
    ~Pool();
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;

private:
    void* _pool;
};

/// Objects of the fake that are alive.
[[nodiscard]] int alive();

} // namespace tarnwick::appkit
