// SPDX-License-Identifier: MIT
#include "app/Desktop.h"
#include "app/MainInterface.h"
#include "app/Translations.h"
#include "foundation/Version.h"
#include "prefs/PreferencesWindowController.h"

#include <cstdio>
#include <string_view>

using namespace Qt::StringLiterals;
using namespace tarnwick;

namespace {

int printVersion()
{
    QString text = u"Tarnwick %1\n"_s.arg(TarnwickVersion);
    if (const QString desktop = desktopOfThisBuild(); !desktop.isEmpty())
        text += desktop + u'\n';
    std::fputs(text.toUtf8().constData(), stdout);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::string_view(argv[1]) == "--version")
        return printVersion();
    const Desktop desktop = openDesktop(argc, argv);
    desktop.makeShared();
    if (desktop.session->handedOverToRunningInstance())
        return 0;
    const Translations translations;
    AppDelegate::initialize();
    std::unique_ptr<MainInterface> interface;
    return desktop.session->run([&interface] {
        interface =
            std::make_unique<MainInterface>([] { return std::make_unique<PreferencesWindowController>(); });
        interface->finishLaunching();
    });
}
