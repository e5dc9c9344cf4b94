// SPDX-License-Identifier: MIT
#pragma once

#include "ax/Accessibility.h"
#include "foundation/Workspace.h"

namespace tarnwick {

/// The accessibility interface as it would be with a chosen application in front: "AXFocusedApplication" is
/// that application, everything else is the real interface's answer. Does not own the real one.
class ChosenApplicationAccessibility final : public Accessibility
{
public:
    ChosenApplicationAccessibility(Accessibility& real, qint64 processIdentifier)
        : _real(real), _processIdentifier(processIdentifier)
    {
    }

    void beginReading() override { _real.beginReading(); }
    bool apiEnabled() override { return _real.apiEnabled(); }
    bool isProcessTrusted() override { return _real.isProcessTrusted(); }
    UIElementRef createSystemWide() override;
    UIElementRef createApplication(qint64 pid) override { return _real.createApplication(pid); }
    std::optional<qint64> getPid(const UIElementRef& element) override { return _real.getPid(element); }
    std::optional<QStringList> copyAttributeNames(const UIElementRef& element) override;
    std::optional<QVariant> copyAttributeValue(const UIElementRef& element,
                                               const QString& attribute) override;
    std::optional<int> getAttributeValueCount(const UIElementRef& element, const QString& attribute) override;
    std::optional<bool> isAttributeSettable(const UIElementRef& element, const QString& attribute) override;
    /// A report changes nothing: always false.
    bool setAttributeValue(const UIElementRef& element, const QString& attribute,
                           const QVariant& value) override;
    std::optional<QStringList> copyActionNames(const UIElementRef& element) override;
    std::optional<QString> copyActionDescription(const UIElementRef& element, const QString& action) override;
    bool performAction(const UIElementRef& element, const QString& action) override;

private:
    Accessibility& _real;
    qint64 _processIdentifier;
    UIElementRef _systemWide;
};

/// The desktop with that application active. Does not own the real one.
class ChosenApplicationWorkspace final : public Workspace
{
public:
    ChosenApplicationWorkspace(Workspace& real, ActiveApplication chosen)
        : _real(real), _chosen(std::move(chosen))
    {
    }

    std::optional<ActiveApplication> activeApplication() const override { return _chosen; }
    std::optional<qint64> activeProcessIdentifier() const override { return _chosen.processIdentifier; }
    bool installAppFrontSwitchedHandler(std::function<void()> switched) override;
    bool openURL(const QUrl& url) override { return _real.openURL(url); }
    QStringList searchPathForDirectoriesInDomains(SearchPathDirectory directory, SearchPathDomainMask domains,
                                                  bool expandTilde) const override;

private:
    Workspace& _real;
    ActiveApplication _chosen;
};

} // namespace tarnwick
