#pragma once

#include "catalog/catalog.h"
#include "catalog/settings_file.h"
#include "ui/qt/widgets/guard.h"
#include "ui/search.h"
#include "ui/search_settings.h"

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>

namespace ui::qt {

/// The search window. It stays beside the main window while the user goes on there; closing it in any way
/// saves its place and its ticks and keeps the phrase for the next time. F3 and Shift+F3 go on in it as they
/// do in the main window, whose shortcuts call `searchNext` and `searchPrevious` whether it is open or not.
class Find final : public QDialog {
    Q_OBJECT

public:
    /// What it searches, moves, tells and saves to; all of it must outlive the window.
    struct Surroundings {
        const catalog::Catalog& catalog;
        SearchedGrid& grid;
        platform::MessageBox& messages;
        const catalog::SettingsFile& userSettings;
        Guard& guard;
    };

    Find(const Surroundings& surroundings, QWidget* parent);

    /// Shows the window, or brings it to the front, ready for a phrase to be typed.
    void bringUp();

    /// On from the grid's current row, with the last phrase and ticks. Before there is a phrase, and while
    /// the window is closed, there is nothing to go on with: it comes up.
    void searchNext();
    void searchPrevious();

    /// Out of sight, and not closed, while there is nothing to search; back at its place. The desktop may
    /// give it the focus then.
    void stepAside();
    void comeBack();

    /// Every way of closing leads here. Nothing is saved when it is closed already.
    void reject() override;

private:
    void layOut();
    void nameControls();
    void nameTick(QCheckBox* tick, catalog::ParameterText caption, const QString& name);
    void connectControls();
    void restore();
    void save() const;
    void focusPhrase();
    [[nodiscard]] bool nothingToGoOnWith() const;
    [[nodiscard]] SearchQuery query() const;
    [[nodiscard]] SearchedColumns ticks() const;

    const catalog::Parameters& m_parameters;
    const catalog::SettingsFile& m_userSettings;
    Guard& m_guard;
    Search m_search;
    bool m_steppedAside = false;

    QLineEdit* m_phrase;
    QCheckBox* m_code;
    QCheckBox* m_description;
    QCheckBox* m_other;
    QPushButton* m_first;
    QPushButton* m_next;
    QPushButton* m_previous;
    QPushButton* m_cancel;
};

}
