#pragma once

#include "app/session.h"
#include "platform/program_file.h"
#include "ui/qt/form1.h"
#include "ui/qt/widgets/message_boxes.h"
#include "ui/system/mail/system_mailer.h"

#include <QApplication>
#include <benchmark/benchmark.h>

#include <filesystem>

/// What all measurements of windows share. They need a display: xvfb-run will do.
namespace bench {

class ProgramFile final : public platform::ProgramFile {
public:
    explicit ProgramFile(std::filesystem::path path) : m_path(std::move(path)) {}

    [[nodiscard]] std::filesystem::path path() const override { return m_path; }

    [[nodiscard]] bool isReadOnly() const override { return false; }

private:
    std::filesystem::path m_path;
};

/// The main window with a catalogue, as the program opens it. No order is kept.
class MainWindow {
public:
    explicit MainWindow(const app::Session& session);

    [[nodiscard]] ui::qt::Form1& form() { return m_form; }

    template <typename Widget>
    [[nodiscard]] Widget* control(const char* name) {
        return m_form.findChild<Widget*>(name);
    }

    [[nodiscard]] ui::qt::PageBrowser& page();

    /// Shows the window and waits for the first page.
    void open();

private:
    ui::qt::MessageBoxes m_messages;
    ui::qt::Guard m_guard{m_messages};
    ui::system::SystemMailer m_mailer;
    ui::qt::Form1 m_form;
};

/// A session with the catalogue in this folder, where its scratch page and its order go too.
[[nodiscard]] app::Session sessionIn(const std::filesystem::path& folder);

/// Tells when a widget has been painted.
class PaintWatch final : public QObject {
public:
    explicit PaintWatch(QWidget& watched) { watched.installEventFilter(this); }

    void waitForPaint();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_painted = false;
};

/// As a key that is held does, over and over.
void repeatKey(QWidget& widget, int key);

void pressKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = {});

/// Prepares the browser as the program does, and keeps the settings of windows in this folder. To be called
/// before the application is made.
void prepareApplication(const std::filesystem::path& settings);

/// Makes the application, has `measure` register its benchmarks and runs them: the whole of a `main`.
int runMeasurements(int argc, char* argv[], void (*measure)());

/// By the clock, in milliseconds.
void inMilliseconds(benchmark::internal::Benchmark* measurement);

}
