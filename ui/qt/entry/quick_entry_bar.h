#pragma once

#include "ui/article_suggestions.h"
#include "ui/qt/entry/suggestion_list.h"
#include "ui/qt/order/order_screen.h"
#include "ui/qt/widgets/guard.h"
#include "ui/scan_watch.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <QToolButton>

#include <optional>

namespace ui::qt {

/// A line for codes and quantities, typed by a practised hand or read by a scanner. Enter leads from the code
/// to the quantity, and there orders and leads back; a scanner's Enter orders one more. Whatever comes of
/// it is said in the line, never in a box.
class QuickEntryBar final : public QWidget {
    Q_OBJECT

public:
    /// All must outlive it.
    QuickEntryBar(const catalog::Catalog& catalog, OrderScreen& order, Guard& guard, QWidget* parent);

    /// Shows it, and puts the keyboard focus into the code's box.
    void open();

    /// The last one that Tab leads to.
    [[nodiscard]] QWidget& lastControl() { return *m_close; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void nameControls();
    void layOut();
    void connectControls();

    [[nodiscard]] bool keyPressed(QLineEdit& box, const QKeyEvent& key);
    void noteForScan(const QLineEdit& box, const QKeyEvent& key);
    void enterPressed(const QLineEdit& box, std::chrono::milliseconds when);
    void escape();

    void suggest();
    void suggestMore();
    void endSuggestions();
    void choose(std::int32_t product);

    bool codeEntered();
    void quantityEntered();
    void scanned(const QLineEdit& box, const QString& code);
    bool order(const QString& code, const QString& quantity);
    void beginAgain();
    void close();

    const catalog::Catalog& m_catalog;
    OrderScreen& m_order;
    Guard& m_guard;
    QLineEdit* m_code;
    QLineEdit* m_quantity;
    QCheckBox* m_scanner;
    QLabel* m_said;
    QToolButton* m_close;
    SuggestionList* m_list = nullptr; // made at the first use, when the window is there
    std::optional<ArticleSuggestions> m_suggestions;
    QTimer m_pause; // in typing, after which articles are suggested
    QTimer m_search;
    QTimer m_scanEnds; // when no quantity comes behind a scanner's code
    ScanWatch m_scan;
    QString m_saidBefore; // of the line before, which was not read yet
    QString m_beforeRun;  // what the box said before the keys that may be a scanner's
    QPointer<QWidget> m_formerFocus;
};

}
