#include "ui/qt/find.h"

#include "ui/qt/widgets/qt_text.h"
#include "ui/qt/widgets/window_place.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

namespace ui::qt {
namespace {

using catalog::ParameterText;

constexpr int longestPhrase = 100; // no cell is longer
constexpr int phraseWidth = 34;    // in average characters

}

Find::Find(const Surroundings& surroundings, QWidget* parent)
    : QDialog(parent),
      m_parameters(surroundings.catalog.parameters),
      m_userSettings(surroundings.userSettings),
      m_guard(surroundings.guard),
      m_search(surroundings.catalog.products, surroundings.grid, surroundings.messages),
      m_phrase(new QLineEdit(this)),
      m_code(new QCheckBox(this)),
      m_description(new QCheckBox(this)),
      m_other(new QCheckBox(this)),
      m_first(new QPushButton("&First", this)),
      m_next(new QPushButton("&Next", this)),
      m_previous(new QPushButton("&Previous", this)),
      m_cancel(new QPushButton("&Cancel", this)) {
    setObjectName("Find");
    setWindowTitle("Search");
    setWindowFlag(Qt::WindowContextHelpButtonHint); // where the platform has one
    setModal(false);
    nameControls();
    layOut();
    connectControls();
    restore();
}

void Find::nameControls() {
    m_phrase->setObjectName("txFind");
    m_phrase->setAccessibleName("Search for");
    m_phrase->setMaxLength(longestPhrase);
    m_phrase->setMinimumWidth(fontMetrics().averageCharWidth() * phraseWidth);
    m_code->setObjectName("cbCode");
    m_description->setObjectName("cbDesc");
    m_other->setObjectName("cbOther");
    m_first->setObjectName("cbFirst");
    m_next->setObjectName("cbNext");
    m_previous->setObjectName("cbPrev");
    m_cancel->setObjectName("cbCancel");
    nameTick(m_code, ParameterText::codeCaption, "Code");
    nameTick(m_description, ParameterText::descriptionCaption, "Description");
    nameTick(m_other, ParameterText::otherCaption, "Other");
    // A catalogue without the Other column shows no box for it; what was ticked is searched all the same.
    m_other->setVisible(!m_parameters.text(ParameterText::otherCaption).empty());
    m_next->setDefault(true);
}

// Labelled as the catalogue calls the column; the name is for the tip.
void Find::nameTick(QCheckBox* tick, ParameterText caption, const QString& name) {
    tick->setText(asCaption(toQt(m_parameters.text(caption))));
    tick->setAccessibleName(tick->text().isEmpty() ? name : toQt(m_parameters.text(caption)));
    tick->setToolTip("If ticked, includes the " + name + " column in the search");
}

void Find::layOut() {
    auto* label = new QLabel("&Search for", this);
    label->setBuddy(m_phrase);
    auto* what = new QVBoxLayout;
    what->addWidget(label);
    what->addWidget(m_phrase);
    what->addSpacing(6);
    for (auto* tick : {m_code, m_description, m_other})
        what->addWidget(tick);
    what->addStretch();
    auto* buttons = new QVBoxLayout;
    for (auto* button : {m_first, m_next, m_previous, m_cancel})
        buttons->addWidget(button);
    buttons->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->setSpacing(14);
    layout->addLayout(what, 1);
    layout->addLayout(buttons);
}

void Find::connectControls() {
    connect(m_first, &QPushButton::clicked, this, m_guard([this] { m_search.first(query()); }));
    connect(m_next, &QPushButton::clicked, this, m_guard([this] { m_search.next(query()); }));
    connect(m_previous, &QPushButton::clicked, this, m_guard([this] { m_search.previous(query()); }));
    connect(m_cancel, &QPushButton::clicked, this, &Find::reject);
    const auto saveTick = [this](QCheckBox* tick, catalog::SettingKey key) {
        connect(tick, &QCheckBox::clicked, this,
                m_guard([this, key](bool ticked) { saveSearchTick(key, ticked, m_userSettings); }));
    };
    saveTick(m_code, catalog::setting::findCode);
    saveTick(m_description, catalog::setting::findDescription);
    saveTick(m_other, catalog::setting::findOther);
    const auto shortcut = [this](const QKeySequence& keys, auto work) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, m_guard(work));
    };
    shortcut(Qt::Key_F3, [this] { searchNext(); });
    shortcut(Qt::SHIFT | Qt::Key_F3, [this] { searchPrevious(); });
    shortcut(QKeySequence::Find, [this] { focusPhrase(); });
}

void Find::bringUp() {
    if (!isVisible()) {
        restore();
        show();
    }
    raise();
    activateWindow();
    focusPhrase();
}

void Find::focusPhrase() {
    m_phrase->setFocus(Qt::ShortcutFocusReason);
    m_phrase->selectAll();
}

bool Find::nothingToGoOnWith() const {
    return !isVisible() && m_phrase->text().isEmpty();
}

void Find::searchNext() {
    if (nothingToGoOnWith())
        bringUp();
    else
        m_search.next(query());
}

void Find::searchPrevious() {
    if (nothingToGoOnWith())
        bringUp();
    else
        m_search.previous(query());
}

void Find::restore() {
    const auto settings = readSearchSettings(m_userSettings);
    m_code->setChecked(settings.columns.code);
    m_description->setChecked(settings.columns.description);
    m_other->setChecked(settings.columns.other);
    adjustSize();
    if (settings.left == 0 && settings.top == 0)
        placeOver(*this, *parentWidget()->window());
    else
        placeAt(*this, settings.left, settings.top);
}

void Find::save() const {
    saveSearchSettings({static_cast<float>(x()), static_cast<float>(y()), ticks()}, m_userSettings);
}

void Find::stepAside() {
    if (!isVisible())
        return;
    m_steppedAside = true;
    hide();
}

void Find::comeBack() {
    if (!std::exchange(m_steppedAside, false))
        return;
    setAttribute(Qt::WA_ShowWithoutActivating);
    show();
    setAttribute(Qt::WA_ShowWithoutActivating, false);
}

void Find::reject() {
    if (std::exchange(m_steppedAside, false) || isVisible())
        m_guard.run([this] { save(); });
    QDialog::reject();
}

SearchedColumns Find::ticks() const {
    return {m_code->isChecked(), m_description->isChecked(), m_other->isChecked()};
}

SearchQuery Find::query() const {
    return {fromQt(m_phrase->text()), ticks()};
}

}
