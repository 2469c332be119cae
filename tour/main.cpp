// Walks through the program's real windows on two sample catalogues and keeps what they look like:
//     tour FOLDER
// puts its program folder and its screenshots into FOLDER.
#include "tour/script.h"
#include "ui/qt/icons.h"
#include "ui/qt/product_grid.h"
#include "ui/qt/program.h"
#include "ui/system/browser_start.h"
#include "ui/system/instance_lock.h"
#include "ui/system/screen.h"

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QTest>

#include <cstdio>
#include <filesystem>

namespace {
namespace fs = std::filesystem;
using namespace tour;

class TourProgramFile final : public platform::ProgramFile {
public:
    explicit TourProgramFile(fs::path path) : m_path(std::move(path)) {}
    [[nodiscard]] fs::path path() const override { return m_path; }
    [[nodiscard]] bool isReadOnly() const override { return false; }

private:
    fs::path m_path;
};

void prepareProgramFolder(const fs::path& folder) {
    fs::remove_all(folder);
    fs::create_directories(folder);
    fs::copy_file(fs::path(TAVORINE_PROGRAM_FOLDER) / "Start.ect", folder / "Start.ect");
    for (const auto& entry : fs::directory_iterator(TAVORINE_SAMPLES_FOLDER))
        if (entry.path().extension() == ".zip")
            fs::copy_file(entry.path(), folder / entry.path().filename());
}

class Camera {
public:
    explicit Camera(fs::path folder) : m_folder(std::move(folder)) {}

    void take(const QString& name) const {
        QTest::qWait(150); // what has been loaded still has to reach the screen
        auto* window = QApplication::activeModalWidget();
        if (!window)
            window = QApplication::activeWindow();
        const auto picture = window ? QApplication::primaryScreen()->grabWindow(window->winId())
                                    : QApplication::primaryScreen()->grabWindow(0);
        const auto file = QString::fromStdString((m_folder / (name.toStdString() + ".png")).string());
        if (!picture.save(file))
            std::fprintf(stderr, "can not write %s\n", qPrintable(file));
        else
            std::printf("%s\n", qPrintable(file));
    }

private:
    fs::path m_folder;
};

QWebEngineView* page() {
    return visible<QWebEngineView>("WbPage");
}

void play(Script& script, const Camera& camera) {
    script.when("the e-mail question", [] { return messageBox("Tavorine Catalog Viewer"); },
                [&] {
                    camera.take("1-first-run");
                    press(*messageBox("Tavorine Catalog Viewer"), QMessageBox::Yes);
                });
    script.when("the supplier list",
                [] {
                    auto* list = visible<QWebEngineView>("WebBrowser1");
                    return list && !pageText(*list).isEmpty();
                },
                [&] {
                    camera.take("2-suppliers");
                    clickInPage(*visible<QWebEngineView>("WebBrowser1"), "a[href]");
                });
    script.when("the welcome page", [] { return visible<QLineEdit>("txtPassword") && QApplication::focusWidget() && QApplication::focusWidget()->objectName() == "txtPassword"; },
                [&] {
                    camera.take("3-welcome");
                    QTest::keyClick(visible<QLineEdit>("txtPassword"), Qt::Key_Return);
                });
    script.when("the main window", [] { return page() && !pageText(*page()).isEmpty(); },
                [&] { camera.take("4-contents"); });
    script.when("the product grid", [] { return visible<ui::qt::ProductGrid>("ctGrid1"); },
                [&] {
                    auto* grid = visible<ui::qt::ProductGrid>("ctGrid1");
                    for (int i = 0; i < 4; ++i)
                        QTest::keyClick(grid, Qt::Key_Down);
                    QTest::qWait(600);
                    camera.take("5-product");
                });
}

}

int main(int argc, char* argv[]) {
    if (argc != 2) {
        std::fputs("usage: tour FOLDER\n", stderr);
        return 2;
    }
    const auto folder = fs::absolute(argv[1]);
    prepareProgramFolder(folder / "program");
    qputenv("XDG_CONFIG_HOME", (folder / "config").string().c_str());

    ui::system::prepareBrowser();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tavorine tour");
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(ui::qt::programIcon());

    TourProgramFile programFile(folder / "program" / "Tavorine");
    ui::system::PrimaryScreen screen;
    ui::system::FileInstanceLock instanceLock;
    ui::qt::Program program({programFile, screen, instanceLock, folder / "own"});
    program.start();
    const Camera camera(folder);
    Script script;
    play(script, camera);
    return script.run() ? 0 : 1;
}
