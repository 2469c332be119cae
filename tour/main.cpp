// Walks through the program's real windows on two sample catalogues and keeps what they look like:
//     tour [--dark] [--font POINTS] FOLDER
// puts its program folder and its screenshots into FOLDER. It fails when it gets stuck, or when something is
// not to be seen whole.
#include "tour/look.h"
#include "tour/order_scenes.h"
#include "tour/program_folder.h"
#include "tour/scenes.h"
#include "ui/qt/program.h"
#include "ui/qt/widgets/icons.h"
#include "ui/system/browser_start.h"
#include "ui/system/file_instance_lock.h"
#include "ui/system/primary_screen.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QSettings>

#include <cstdio>
#include <filesystem>

namespace {
namespace fs = std::filesystem;

struct Arguments {
    tour::Look look;
    fs::path folder;
};

Arguments readArguments() {
    QCommandLineParser parser;
    const QCommandLineOption dark("dark", "Before a dark desktop.");
    const QCommandLineOption font("font", "With a system font of so many points.", "points", "0");
    parser.addOptions({dark, font});
    parser.addHelpOption();
    parser.addPositionalArgument("FOLDER", "Where the screenshots go.");
    parser.process(*QApplication::instance());
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(2);
    return {{parser.isSet(dark), parser.value(font).toDouble()},
            fs::absolute(parser.positionalArguments().front().toStdString())};
}

}

int main(int argc, char* argv[]) {
    ui::system::prepareBrowser();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tavorine tour");
    const auto wanted = readArguments();
    tour::apply(wanted.look);
    const auto& folder = wanted.folder;
    tour::prepareProgramFolder(folder / "program");
    for (const char* earlier : {"config", "kept"})
        fs::remove_all(folder / earlier);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       QString::fromStdU16String((folder / "config").u16string()));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(ui::qt::programIcon());

    tour::ProgramFile programFile(folder / "program" / "Tavorine");
    ui::system::PrimaryScreen screen;
    ui::system::FileInstanceLock instanceLock;
    const auto run = [&](tour::Script& script) {
        ui::qt::Program program({programFile, screen, instanceLock, folder / "own", folder / "kept"});
        program.start();
        return script.run();
    };
    tour::Script first;
    tour::play(first, folder);
    tour::addOrderScenes(first, folder,
                         [&](const std::string& name) { tour::photograph(first, folder, name); });
    tour::Script second;
    tour::playSecondSupplier(second, folder);
    return run(first) && run(second) ? 0 : 1;
}
