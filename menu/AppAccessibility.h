// SPDX-License-Identifier: MIT
#pragma once

#include "ax/UIElement.h"
#include "foundation/NotificationCenter.h"
#include "menu/MenuDelegate.h"

#include <QHash>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <optional>

namespace tarnwick {

class ProxyMenuItem;

/// The mirror of the menu bar of the application in front. update() reads the first level into menu(); each
/// submenu is read when it is about to open. It is the delegate of every menu that it builds. Failures are
/// silent: what cannot be read is missing. GUI thread only.
class AppAccessibility final : public MenuDelegate
{
public:
    /// Null when there is no accessibility access or no focused application.
    [[nodiscard]] static std::unique_ptr<AppAccessibility> initWithFocusedApp();
    ~AppAccessibility() override;
    AppAccessibility(const AppAccessibility&) = delete;
    AppAccessibility& operator=(const AppAccessibility&) = delete;

    /// Reads the name and the menu bar of the application in front anew.
    void update();

    [[nodiscard]] const std::optional<QString>& currentAppName() const { return _currentAppName; }
    /// The root menu: made once, emptied and filled again by update().
    [[nodiscard]] const std::shared_ptr<Menu>& menu() const { return _menu; }
    [[nodiscard]] const std::shared_ptr<Menu>& auxiliaryMenu() const { return _auxiliaryMenu; }
    /// Appended to the root menu the next time that it opens. Its title has to be "Tarnwick".
    void setAuxiliaryMenu(std::shared_ptr<Menu> menu);

    /// Flags take effect the next time that a menu is built.
    [[nodiscard]] bool keyEquivalents() const { return _keyEquivalents; }
    void setKeyEquivalents(bool show) { _keyEquivalents = show; }
    [[nodiscard]] bool foldAlternateItems() const { return _foldAlternateItems; }
    void setFoldAlternateItems(bool fold) { _foldAlternateItems = fold; }
    [[nodiscard]] bool showRecentSelections() const { return _showRecentSelections; }
    void setShowRecentSelections(bool show) { _showRecentSelections = show; }
    [[nodiscard]] bool showApplicationMenu() const { return _showApplicationMenu; }
    void setShowApplicationMenu(bool show) { _showApplicationMenu = show; }
    [[nodiscard]] bool showAppleMenu() const { return _showAppleMenu; }
    void setShowAppleMenu(bool show) { _showAppleMenu = show; }

    // Elements; an empty handle is nothing.
    [[nodiscard]] UIElementRef elementOfAppWithFocus() const;
    [[nodiscard]] UIElementRef getAXMenuBarFor(const UIElementRef& application) const;
    [[nodiscard]] std::optional<QList<UIElementRef>> menuItemsIn(const UIElementRef& element) const;
    [[nodiscard]] UIElementRef getAXElementOfOurProcess() const;

    // Building.
    void updateRootMenu();
    /// Appends one item for each titled child of `element` and attaches a submenu, still to be filled, for
    /// each untitled menu below to the first item of `menu` with the title `previousTitle`.
    void processAXMenuAsNSMenuWithParentMenuAndPrevDesc(const UIElementRef& element, Menu& menu,
                                                        const std::optional<QString>& previousTitle);
    /// The same with each child of `element` that is a menu.
    void processSubAXMenuAsNSMenuWithParentMenuAndPrevDesc(const UIElementRef& element, Menu& menu,
                                                           const std::optional<QString>& unused);
    /// "Type": "AXMenuItem", "AXMenu" or "AXOther"; "MenuItem": a std::shared_ptr<MenuItem> for the first,
    /// else the text "Nothing".
    [[nodiscard]] QVariantMap getMenuItemForElement(const UIElementRef& element);
    [[nodiscard]] std::shared_ptr<ProxyMenuItem>
    createActionNodeWithAndMenuItem(const UIElementRef& element, const std::shared_ptr<MenuItem>& item);
    void initializeModifierLookUpTable();
    void initializeGlyphLookUpTable();

    void registerForNotifications();
    /// Does nothing: a choice reaches the other application through the item's target only.
    void handleMenuSelection(const Notification& notification);

    // Finishing.
    void appendAuxiliaryMenuTo(Menu& menu);
    void removeDuplicateMenuItems(Menu& menu);
    /// Records nothing: the list of recent selections stays as it is.
    void updateRecentSelectionsListWithItem(const std::shared_ptr<MenuItem>& item);
    void addRecentSelectionsMenuTo(Menu& menu);
    [[nodiscard]] const QStringList& recentSelectionsList() const { return _recentSelectionsList; }
    void setRecentSelectionsList(const QStringList& itemKeys) { _recentSelectionsList = itemKeys; }

    // The application in front and its focused window. "NS" is the window system's space, "CG" the display
    // system's; nothing or zero without a focused window.
    [[nodiscard]] std::optional<QString> focusedAppName() const;
    [[nodiscard]] std::optional<QString> focusedWindowTitle() const;
    /// The localised words for the role, such as "window" or "dialog".
    [[nodiscard]] std::optional<QString> focusedWindowRole() const;
    [[nodiscard]] bool isAuxiliaryWindowActive() const;
    [[nodiscard]] bool isFinderDesktopWindowActive() const;
    [[nodiscard]] QRectF focusedWindowFrameNS() const;
    [[nodiscard]] QRectF focusedWindowFrameCG() const;
    [[nodiscard]] QPointF focusedWindowPosition() const;
    [[nodiscard]] QPointF focusedWindowPositionCG() const;
    [[nodiscard]] QRectF focusedWindowTitleFrame() const;
    [[nodiscard]] QPointF focusedWindowTitlePosition() const; ///< CG
    [[nodiscard]] QRectF convertNSToCGRectCoords(const QRectF& rect) const;
    void setSizeOfFocusedWindowH(float width, float height);
    void setPositionOfFocusedWindowY(float x, float y); ///< CG

    void menuNeedsUpdate(Menu& menu) override;
    void menuWillHighlightItem(Menu& menu, MenuItem* item) override;
    void menuWillOpen(Menu& menu) override;
    void menuDidClose(Menu& menu) override;
    bool menuHasKeyEquivalentForEventTargetAction(Menu& menu, const Event& event, ActionTarget*& target,
                                                  QString& action) override;

    /// A menu whose title is this very string (not an equal one) is left as it is when it opens. No menu of
    /// the program has it.
    [[nodiscard]] static const QString& reservedMarkerTitle();

private:
    AppAccessibility();
    struct Filling;
    void _addChildren(Filling& filling, const UIElementRef& element,
                      const std::optional<QString>& previousTitle);
    void _attachSubmenu(Filling& filling, const std::optional<QString>& previousTitle);
    void _setKeyEquivalent(MenuItem& item, const QVariant& character, const QVariant& glyph) const;
    void _finishRootMenu();
    void _fillSubmenu(Menu& menu);
    [[nodiscard]] std::shared_ptr<MenuItem> _itemOnPath(const QStringList& titles);
    void _leaveMenu(Menu& menu);
    [[nodiscard]] UIElementRef _focusedWindow() const;
    [[nodiscard]] UIElementRef _focusedWindowTitleElement() const;

    UIElementRef _systemAXUIElementRef;
    UIElementRef _appAXUIElementRef;
    UIElementRef _menuAXUIElementRef;
    QHash<QString, quint32> _modifierLookupTable;
    QHash<QString, QString> _glyphLookupTable;
    std::shared_ptr<Menu> _menu;
    [[maybe_unused]] QVariant _menuActions;
    QStringList _recentSelectionsList;
    [[maybe_unused]] std::shared_ptr<Menu> _tornOffMenu;
    bool _showAppleMenu = false;
    bool _showRecentSelections = false;
    bool _showApplicationMenu = false;
    bool _foldAlternateItems = false;
    bool _keyEquivalents = false;
    std::shared_ptr<Menu> _auxiliaryMenu;
    std::optional<QString> _currentAppName;
    std::optional<QString> _appDescription; ///< of the focused application; read when first needed
    std::unique_ptr<NotificationCenter::Observer> _menuSelectionObserver;
};

} // namespace tarnwick
