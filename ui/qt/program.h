#pragma once

#include "app/start_up.h"
#include "ui/qt/form1.h"
#include "ui/qt/help/help.h"
#include "ui/qt/welcome.h"
#include "ui/qt/widgets/guard.h"
#include "ui/qt/widgets/message_boxes.h"
#include "ui/qt/widgets/prompt_letters.h"
#include "ui/qt/widgets/screen_watch.h"
#include "ui/system/archive/background_archive.h"
#include "ui/system/mail/system_mailer.h"
#include "ui/system/stop_requests.h"

#include <QObject>

#include <filesystem>
#include <memory>
#include <vector>

namespace ui::qt {

/// What the program finds on the machine; it outlives the `Program`.
struct Machine {
    platform::ProgramFile& programFile;
    platform::Screen& screen;
    platform::InstanceLock& instanceLock;
    std::filesystem::path ownFolder; ///< the user's own folder, used where the catalogue's is read-only
    /// Where orders are kept; made when it is needed. Empty: nothing is kept.
    std::filesystem::path keptFolder{};
};

/// Wires the windows and what drives them, and keeps them while the program runs.
class Program final : public QObject {
    Q_OBJECT

public:
    explicit Program(const Machine& machine);

    /// Shows the start-up window and starts up once it is painted. The event loop must run then.
    void start();

    [[nodiscard]] Welcome& welcome() { return m_welcome; }

    /// Nothing until the main window is open.
    [[nodiscard]] Form1* mainWindow() { return m_form1.get(); }

private:
    void startUp();
    void installDropped(const std::vector<std::filesystem::path>& zips);
    void openMainWindow(const app::Session& session);
    void closeMainWindow();
    void endWithoutMainWindow();
    void leave();
    void stop();

    std::filesystem::path m_programFolder;
    std::filesystem::path m_keptFolder;
    MessageBoxes m_messages;
    Guard m_guard;
    PromptLetters m_letters;
    Help m_help; // before the windows, whose controls it explains
    system::BackgroundArchive m_archive;
    system::SystemMailer m_mailer;
    ScreenWatch m_screens;
    Welcome m_welcome;
    app::StartUp m_startUp;
    std::unique_ptr<Form1> m_form1;
    system::StopRequests m_stopRequests;
    bool m_stopping = false;
};

}
