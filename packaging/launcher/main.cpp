// Starts Tavorine in the user's own program folder, ~/Tavorine:
//     tavorine [CATALOGUE.zip ...]
// takes the catalogues that it is given into the folder first.
#include "base/program_title.h"
#include "packaging/launcher/own_program_folder.h"
#include "ui/system/browser_start.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>

#include <cstdio>

namespace {
namespace fs = std::filesystem;

// The program files stand where the package has put them, seen from the launcher's own place.
fs::path installedFolder() {
    return fs::canonical("/proc/self/exe").parent_path().parent_path() / "lib" / "tavorine";
}

void run(int argc, char* argv[]) {
    const auto folder = fs::path(QDir::homePath().toStdString()) / "Tavorine";
    launcher::renewProgramFolder(folder, installedFolder());
    for (int i = 1; i < argc; ++i)
        launcher::deliverCatalogue(argv[i], folder);
    launcher::becomeProgram(folder);
}

// On the terminal, and in a box for those who have started from a menu.
void tell(const char* complaint, int argc, char* argv[]) {
    std::fprintf(stderr, "tavorine: %s\n", complaint);
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        return;
    const QApplication application(argc, argv);
    QMessageBox box(QMessageBox::Critical, QString::fromUtf8(base::programTitle), complaint);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}

int main(int argc, char* argv[]) {
    if (ui::system::browserRefusesThisUser()) {
        std::fputs(ui::system::refusalOfThisUser, stderr);
        return 1;
    }
    try {
        run(argc, argv);
    } catch (const std::exception& error) {
        tell(error.what(), argc, argv);
    }
    return 1;
}
