// SPDX-License-Identifier: MIT
// tarnwick-inspect: prints what Tarnwick sees of an application's menus.
#include "app/Inspection.h"
#include "ax/UIElementUtilities.h"
#include "foundation/Version.h"
#include "menu/AppAccessibility.h"
#include "tools/ChosenApplication.h"
#include "tools/MenuReport.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace tarnwick;

namespace {

enum ExitStatus { Printed = 0, NothingToPrint = 1, WrongUsage = 2 };

struct Options
{
    bool all = false;
    bool json = false;
    bool report = false;
    bool sources = false;
    std::optional<qint64> processIdentifier;
    double delay = 0;
};

void print(const QString& text)
{
    std::fputs(text.toUtf8().constData(), stdout);
}

int complain(ExitStatus status, const QString& text)
{
    std::fputs((u"tarnwick-inspect: "_s + text + u"\n"_s).toUtf8().constData(), stderr);
    return status;
}

/// Nothing, after a complaint, when they are not understood. Needs no display, and leaves no application
/// object.
std::optional<Options> parsedOptions(int& argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"tarnwick-inspect"_s);
    QCoreApplication::setApplicationVersion(TarnwickVersion);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Prints the menus of the application in front as Tarnwick mirrors them: \"-\" is "
        "a disabled entry, \"*\" a checked one, \"---\" a separator."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption all(u"all"_s, u"Walk every submenu."_s);
    const QCommandLineOption json(u"json"_s, u"Print JSON."_s);
    const QCommandLineOption report(u"report"_s,
                                    u"Print the full element report of the focused window instead."_s);
    const QCommandLineOption sources(
        u"sources"_s, u"Print from where the menus can be read, and what could be switched on, instead."_s);
    const QCommandLineOption pid(u"pid"_s, u"Read the application with this process id."_s, u"N"_s);
    const QCommandLineOption delay(u"delay"_s, u"Wait so many seconds first."_s, u"N"_s);
    parser.addOptions({all, json, report, sources, pid, delay});
    parser.process(application);

    Options options;
    options.all = parser.isSet(all);
    options.json = parser.isSet(json);
    options.report = parser.isSet(report);
    options.sources = parser.isSet(sources);
    bool valid = true;
    if (parser.isSet(pid)) {
        options.processIdentifier = parser.value(pid).toLongLong(&valid);
        valid = valid && *options.processIdentifier > 0;
    }
    if (valid && parser.isSet(delay)) {
        options.delay = parser.value(delay).toDouble(&valid);
        valid = valid && options.delay >= 0 && options.delay <= 3600;
    }
    if (!valid || !parser.positionalArguments().isEmpty()) {
        complain(WrongUsage, u"what was asked for is not understood; --help tells what there is."_s);
        return std::nullopt;
    }
    return options;
}

void waitFor(double seconds)
{
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(seconds * 1000), &loop, &QEventLoop::quit);
    loop.exec();
}

int printReport(const UIElementRef& application)
{
    const QVariant window =
        UIElementUtilities::valueOfAttributeOfUIElement(u"AXFocusedWindow"_s, application);
    if (!window.canConvert<UIElementRef>())
        return complain(NothingToPrint, u"the application in front has no focused window."_s);
    print(UIElementUtilities::stringDescriptionOfUIElement(window.value<UIElementRef>()));
    return Printed;
}

int printSources(const Inspection& inspection, const Options& options)
{
    const QStringList lines = inspection.menuSources(options.processIdentifier);
    if (lines.isEmpty())
        return complain(NothingToPrint, u"there is no window to tell the sources of."_s);
    print(lines.join(u'\n') + u'\n');
    return Printed;
}

int printMenus(AppAccessibility& mirror, const Inspection& inspection, const Options& options)
{
    mirror.setKeyEquivalents(true);
    mirror.setFoldAlternateItems(true);
    mirror.setShowAppleMenu(true);
    mirror.update();
    MenuReport report(mirror, inspection.keyEquivalentText, [] { QCoreApplication::processEvents(); });
    const QList<ReportedEntry> entries = report.read(options.all);

    const auto active = Workspace::shared().activeApplication();
    const QString name = active ? active->name : QString();
    const qint64 pid = active ? active->processIdentifier.value_or(0) : 0;
    if (options.json) {
        const QJsonObject root{{u"application"_s, name},
                               {u"pid"_s, pid},
                               {u"version"_s, TarnwickVersion},
                               {u"menu"_s, MenuReport::json(entries)}};
        print(QString::fromUtf8(QJsonDocument(root).toJson()));
    } else {
        print(u"# %1, process %2\n"_s.arg(name).arg(pid));
        print(MenuReport::text(entries));
    }
    if (entries.isEmpty()) {
        const QString whose = name.isEmpty() ? u"no application is in front, or it"_s : name;
        return complain(NothingToPrint, whose + u" publishes no menu bar."_s);
    }
    return Printed;
}

int inspect(const Inspection& inspection, const Options& options)
{
    waitFor(options.delay);
    Accessibility& accessibility = *inspection.accessibility;
    if (!accessibility.apiEnabled() && !accessibility.isProcessTrusted())
        return complain(NothingToPrint,
                        u"there is no accessibility bus in this session, or it cannot be switched on."_s);
    inspection.lookAtFront();
    if (options.sources)
        return printSources(inspection, options);

    std::unique_ptr<ChosenApplicationAccessibility> chosen;
    std::unique_ptr<ChosenApplicationWorkspace> workspace;
    if (options.processIdentifier) {
        const qint64 pid = *options.processIdentifier;
        chosen = std::make_unique<ChosenApplicationAccessibility>(accessibility, pid);
        Accessibility::setShared(chosen.get());
        const auto name = UIElementUtilities::titleOfUIElement(accessibility.createApplication(pid));
        workspace = std::make_unique<ChosenApplicationWorkspace>(
            *inspection.workspace, Workspace::ActiveApplication{name.toString(), pid});
        Workspace::setShared(workspace.get());
    }

    const auto mirror = AppAccessibility::initWithFocusedApp();
    if (!mirror)
        return complain(NothingToPrint, u"no application is in front."_s);
    return options.report ? printReport(mirror->elementOfAppWithFocus())
                          : printMenus(*mirror, inspection, options);
}

} // namespace

int main(int argc, char** argv)
{
    const auto options = parsedOptions(argc, argv);
    if (!options)
        return WrongUsage;
    const Inspection inspection = openInspection(argc, argv);
    inspection.makeShared();
    return inspect(inspection, *options);
}
