#pragma once

#include "pages/browse/page_files.h"
#include "ui/help/help_book.h"
#include "ui/help/help_trail.h"
#include "ui/qt/browser/page_browser.h"
#include "ui/qt/help/help_contents.h"
#include "ui/qt/widgets/guard.h"
#include "ui/qt/widgets/window_memory.h"

#include <QAction>
#include <QMainWindow>

#include <functional>

namespace ui::qt {

/// The window of the help book, beside the others. Its pages run no scripts and get nothing but files of
/// the book's folder; links to the web open in the system's browser. Where a page is missing,
/// base::FileError says so and what was shown stays.
class HelpWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// Opens the book in the folder; base::FileError where there is none.
    HelpWindow(const std::filesystem::path& folder, Guard& guard);

    /// Brings the window to the front with a page, at an anchor: "page.html#anchor".
    void open(std::string_view target);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void layOut();
    void addCommands();
    void addPageCommands();
    QAction* addCommand(const QString& text, const QKeySequence& keys, std::function<void()> act);
    void connectParts();

    void visit(const HelpPlace& place);
    void goTo(const HelpPlace& place);
    void step(int by);
    void moveTo(HelpTrail trail);
    void leave();
    void arrive();
    void scrollToPlace(int tries);
    [[nodiscard]] std::string readPage(const std::string& page) const;
    void display(const std::string& page, const std::string& bytes);
    void showWhereWeAre();

    void followLink(const QUrl& address, bool clicked);
    void followJump(const QUrl& address);
    void searchMarked(bool backward);

    Guard& m_guard;
    std::filesystem::path m_folder;
    HelpBook m_book;
    pages::PageFiles m_files;
    WindowMemory m_memory;
    HelpTrail m_trail;
    std::string m_page; // the one in the browser, or on its way there
    QString m_marked;   // found by a search and marked on the page; empty for none
    HelpContents* m_contents;
    PageBrowser* m_browser;
    QAction* m_back = nullptr;
    QAction* m_forward = nullptr;
};

}
