#pragma once

#include "ui/qt/browser/page_browser.h"
#include "ui/qt/widgets/guard.h"
#include "ui/qt/widgets/window_memory.h"

#include <QMainWindow>

#include <filesystem>
#include <functional>
#include <string_view>

namespace ui::qt {

/// The window "What is new". Its page runs no scripts and loads no file.
class NewsWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// `onLink` hears of the links that are clicked.
    NewsWindow(Guard& guard, std::function<void(const QUrl& address)> onLink, QWidget* parent);

    void bringUp();

    /// Shows a page under this file's address; base::FileError where it is so large that it must be written
    /// there and cannot be.
    void showPage(const std::filesystem::path& file, std::string_view page);

signals:
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addCommand(const QString& text, const QKeySequence& keys, std::function<void()> act);

    Guard& m_guard;
    WindowMemory m_memory;
    PageBrowser* m_browser;
};

}
