// SPDX-License-Identifier: MIT
#pragma once

#include "ax/Accessibility.h"
#include "platform/linux/atspi/AtspiAccess.h"
#include "platform/linux/atspi/AtspiActiveWindow.h"
#include "platform/linux/atspi/AtspiMenuSource.h"
#include "platform/linux/atspi/ToolkitBridge.h"
#include "platform/linux/elements/ElementContext.h"
#include "platform/linux/menus/OwnMenuSource.h"

namespace tarnwick {

/// Reads the menus of other applications from the accessibility bus, or from where their windows say that
/// they export them, and their windows from the X server. All reads of one reading share half a second:
/// ReadingBudget says what one is.
class AtspiAccessibility final : public Accessibility
{
public:
    AtspiAccessibility();

    void beginReading() override { _budget.begin(); }
    [[nodiscard]] bool apiEnabled() override;
    /// There is one switch for all programs: what apiEnabled() found last.
    [[nodiscard]] bool isProcessTrusted() override;
    [[nodiscard]] UIElementRef createSystemWide() override;
    [[nodiscard]] UIElementRef createApplication(qint64 processIdentifier) override;
    [[nodiscard]] std::optional<qint64> getPid(const UIElementRef& element) override;
    [[nodiscard]] std::optional<QStringList> copyAttributeNames(const UIElementRef& element) override;
    [[nodiscard]] std::optional<QVariant> copyAttributeValue(const UIElementRef& element,
                                                             const QString& attribute) override;
    [[nodiscard]] std::optional<int> getAttributeValueCount(const UIElementRef& element,
                                                            const QString& attribute) override;
    [[nodiscard]] std::optional<bool> isAttributeSettable(const UIElementRef& element,
                                                          const QString& attribute) override;
    bool setAttributeValue(const UIElementRef& element, const QString& attribute,
                           const QVariant& value) override;
    [[nodiscard]] std::optional<QStringList> copyActionNames(const UIElementRef& element) override;
    [[nodiscard]] std::optional<QString> copyActionDescription(const UIElementRef& element,
                                                               const QString& action) override;
    bool performAction(const UIElementRef& element, const QString& action) override;

    /// What the workspace reads from the same places. Ours.
    [[nodiscard]] X11ActiveWindow& activeWindow() { return _activeWindow; }
    [[nodiscard]] ApplicationNames& names() { return _names; }
    [[nodiscard]] MenuBars& menuBars() { return _menuBars; }
    [[nodiscard]] AtspiActiveWindow& activeInTree() { return _activeInTree; }

private:
    X11ActiveWindow _activeWindow;
    ToolkitBridge _toolkitBridge;
    AtspiBus _bus{[this](const QByteArray& address) { _toolkitBridge.busAnswered(address); }};
    ReadingBudget _budget;
    X11Windows _windows;
    AtspiApplications _applications;
    AtspiActiveWindow _activeInTree;
    AtspiAccess _access;
    AtspiToolkits _toolkits;
    ChildrenJustTold _childrenJustTold;
    AtspiMenuSource _treeSource;
    SessionBus _sessionBus;
    GtkMenuSource _exportsSource;
    OwnMenuSource _ownSource;
    AtspiMenuBars _treeBars;
    GtkMenuBars _exportedBars;
    MenuBars _menuBars;
    ApplicationNames _names;
    ElementContext _context;
};

} // namespace tarnwick
