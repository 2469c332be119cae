#pragma once

#include "app/start_up.h"
#include "app/welcome_window.h"
#include "ui/qt/browser/page_browser.h"
#include "ui/qt/widgets/guard.h"
#include "ui/qt/widgets/window_memory.h"
#include "ui/system/later_work.h"

#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QWidget>

#include <filesystem>
#include <functional>
#include <vector>

namespace ui::qt {

/// The start-up window: the list of suppliers, a supplier's welcome page and its password. Until the first
/// page is up it shows what is being done.
class Welcome final : public QWidget, public app::WelcomeWindow {
    Q_OBJECT

public:
    explicit Welcome(Guard& guard);

    [[nodiscard]] PageBrowser& browser() { return *m_browser; }

    /// Connects the controls to the start-up that they drive.
    void drive(app::StartUp& startUp);

    void onOpenMainWindow(std::function<void(const app::Session&)> open) {
        m_openMainWindow = std::move(open);
    }

    /// Zips that are dropped on the window once it has started up, with the work panel up.
    void onZipsDropped(std::function<void(const std::vector<std::filesystem::path>& zips)> install) {
        m_installZips = std::move(install);
    }

    /// How far unpacking has come, in bytes.
    void showProgress(quint64 done, quint64 total);
    void hideProgress();

    void confineToProgram(const std::filesystem::path& programFolder) override;
    void confineToSupplier(const catalog::Folders& folders) override;
    void setCaption(std::string_view caption) override;
    void setStatus(std::string_view text) override;
    void waitFor(const std::function<void()>& work) override;
    void later(const std::function<void(const std::stop_token&)>& work) override;
    void showPasswordEntry(std::string_view prompt) override;
    void offerSupplierList(bool offered) override;
    void hidePasswordEntry() override;
    void focusPasswordOncePageIsUp() override;
    void showPasswordConfirmation() override;
    void retryPassword() override;
    void retryPasswordAndConfirmation() override;
    void openMainWindow(const app::Session& session) override;

signals:
    /// The window has been painted for the first time.
    void painted();
    void closeAsked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QWidget* workPanel();
    QWidget* passwordPanel();
    void setConfirming(bool on);
    void installDropped(const std::vector<std::filesystem::path>& zips);
    void followLink(app::StartUp& startUp, const QUrl& address);

    Guard& m_guard;
    WindowMemory m_memory;
    QStackedWidget* m_stack;
    QLabel* m_status;
    QProgressBar* m_progress;
    PageBrowser* m_browser;
    QWidget* m_passwordPanel;
    QLabel* m_prompt;
    QLineEdit* m_password;
    QLabel* m_confirmLabel;
    QLineEdit* m_confirm;
    QPushButton* m_next;
    QPushButton* m_setPassword;
    QPushButton* m_suppliers;
    std::function<void(const app::Session&)> m_openMainWindow;
    std::function<void(const std::vector<std::filesystem::path>&)> m_installZips;
    system::LaterWork m_later;
    bool m_painted = false;
    bool m_focusPassword = false;
};

}
