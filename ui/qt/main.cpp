#include "ui/qt/program.h"
#include "ui/qt/widgets/icons.h"
#include "ui/system/browser_start.h"
#include "ui/system/file_instance_lock.h"
#include "ui/system/freed_memory.h"
#include "ui/system/primary_screen.h"
#include "ui/system/running_program_file.h"

#include <QApplication>
#include <QTimer>

#include <chrono>
#include <cstdio>

int main(int argc, char* argv[]) {
    constexpr std::chrono::seconds startTakes{5};
    ui::system::keepToFewHeaps();
    if (ui::system::browserRefusesThisUser()) {
        std::fputs(ui::system::refusalOfThisUser, stderr);
        return 1;
    }
    ui::system::prepareBrowser();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tavorine");
    QApplication::setApplicationVersion(TAVORINE_VERSION);
    QApplication::setDesktopFileName("tavorine"); // by which a desktop finds the name and icon of its windows
    QApplication::setQuitOnLastWindowClosed(false); // the windows end the program themselves
    QApplication::setWindowIcon(ui::qt::programIcon());

    ui::system::RunningProgramFile programFile;
    ui::system::PrimaryScreen screen;
    ui::system::FileInstanceLock instanceLock;
    ui::qt::Program program(
        {programFile, screen, instanceLock, ui::system::ownFolder(), ui::system::keptFolder()});
    program.start();
    QTimer::singleShot(startTakes, &ui::system::returnFreedMemory);
    return QApplication::exec();
}
