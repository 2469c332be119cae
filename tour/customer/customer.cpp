#include "tour/customer/customer.h"

#include "tour/script.h"
#include "ui/qt/grid/grid.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextEdit>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace tour {
namespace {

ui::qt::Grid* products() {
    return visible<ui::qt::Grid>("ctGrid1");
}

// "1,234.50", with a currency's sign or without, in cents.
qint64 centsOf(const QString& text) {
    QString digits;
    for (const auto character : text)
        if (character.isDigit() || character == '.' || character == '-')
            digits += character;
    return qRound64(digits.toDouble() * 100);
}

qint64 sumOf(const QAbstractItemModel& model) {
    qint64 sum = 0;
    for (int row = 0; row < model.rowCount(); ++row)
        sum += centsOf(model.index(row, model.columnCount() - 1).data().toString());
    return sum;
}

void replaceText(QWidget& box, const QString& text) {
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    for (const auto character : text)
        QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, QString(character), Qt::NoModifier);
}

}

Customer::Customer(std::uint32_t seed, std::filesystem::path folder, Heartbeat& heartbeat)
    : m_random(seed), m_folder(std::move(folder)), m_heartbeat(heartbeat) {
    addListHabits();
    addOrderHabits();
    addWindowHabits();
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &Customer::act);
}

void Customer::addListHabits() {
    m_habits.push_back({"going through the list", 30, [this] { move(); }});
    m_habits.push_back({"typing a quantity", 30, [this] { typeQuantity(); }});
    m_habits.push_back({"pasting quantities", 1, [this] { pasteQuantities(); }});
    m_habits.push_back({"choosing a group", 6, [this] { chooseGroup(); }});
    m_habits.push_back({"searching", 4, [this] { search(); }});
    m_habits.push_back({"going back", 6, [this] { press("Back"); }});
    m_habits.push_back({"clicking in the page", 8, [this] { clickPage("WbPage"); }});
    m_habits.push_back({"clicking in the banner", 1, [this] { clickPage("wbBanner"); }});
}

void Customer::addOrderHabits() {
    m_habits.push_back({"checking out", 4, [this] {
                            if (press("CheckOut"))
                                m_repriced = false;
                        }});
    m_habits.push_back({"going to the price list", 2, [this] { press("Plist"); }});
    m_habits.push_back({"filling in a detail", 12, [this] { fillInDetail(); }});
    m_habits.push_back({"filling in the date", 3, [this] { fillInDate(); }});
    m_habits.push_back({"ticking the tax exemption", 1, [this] {
                            if (press("cbTax"))
                                m_repriced = true;
                        }});
    m_habits.push_back({"clearing the order", 1, [this] { press("Clear"); }});
    m_habits.push_back({"e-mailing", 1, [this] { press("Email"); }});
    m_habits.push_back({"printing", 1, [this] { press("Print"); }});
    m_habits.push_back({"looking at the preview", 1, [] {
                            if (visibleWidget("ctGrid2"))
                                QTest::keyClick(visibleWidget("Form1"), Qt::Key_P,
                                                Qt::ControlModifier | Qt::ShiftModifier);
                        }});
    m_habits.push_back({"adding up the order", 2, [this] { compareTotals(); }});
}

void Customer::addWindowHabits() {
    m_habits.push_back({"opening the help book", 1, [] {
                            if (auto* focus = QApplication::focusWidget())
                                QTest::keyClick(focus, Qt::Key_F1);
                        }});
    m_habits.push_back({"resizing the window", 1, [this] {
                            if (auto* window = visibleWidget("Form1"))
                                window->resize(700 + any(500), 500 + any(400));
                        }});
    m_habits.push_back({"maximizing or restoring the window", 1, [] {
                            if (auto* window = visibleWidget("Form1"))
                                window->setWindowState(window->windowState() ^ Qt::WindowMaximized);
                        }});
}

// Boxes come up while an action is being done, so the next one is on its way before.
void Customer::act() {
    if (m_stopped)
        return;
    m_timer.start(20 + any(100));
    if (!goIn() || answerWhatIsInFront())
        return;
    int weights = 0;
    for (const auto& habit : m_habits)
        weights += habit.weight;
    auto at = any(weights);
    for (const auto& habit : m_habits) {
        at -= habit.weight;
        if (at >= 0)
            continue;
        ++m_actions;
        m_heartbeat.doing(habit.name);
        return habit.act();
    }
}

// Past the start-up window; true once the main window is there.
bool Customer::goIn() {
    if (std::exchange(m_isIn, m_isIn || visibleWidget("Form1")))
        return true;
    auto* suppliers = visible<QWebEngineView>("WebBrowser1");
    if (auto* question = messageBox("Tavorine Catalog Viewer"))
        tour::press(*question, QMessageBox::Yes);
    else if (takesKeys(visibleWidget("txtPassword")))
        QTest::keyClick(visibleWidget("txtPassword"), Qt::Key_Return);
    else if (suppliers && !pageText(*suppliers).isEmpty())
        clickInPage(*suppliers, "a[href]");
    return false;
}

bool Customer::answerWhatIsInFront() {
    if (auto* popup = QApplication::activePopupWidget()) {
        m_heartbeat.doing("closing a list or menu");
        QTest::keyClick(popup, Qt::Key_Escape);
        return true;
    }
    if (auto* dialog = printDialog()) {
        m_heartbeat.doing("answering the print dialog");
        if (any(3) == 0)
            QTest::keyClick(dialog, Qt::Key_Escape);
        else
            printToFile(*dialog, m_folder / "order.pdf");
        return true;
    }
    auto* front = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(front)) {
        m_heartbeat.doing("answering: " + box->text().left(60).toStdString());
        const auto buttons = box->buttons();
        QTest::mouseClick(buttons.at(any(static_cast<int>(buttons.size()))), Qt::LeftButton);
        return true;
    }
    for (const char* name : {"PrintPreview", "HelpWindow"})
        if (auto* window = visibleWidget(name); window && any(10) == 0) {
            m_heartbeat.doing(std::string("closing ") + name);
            window->close();
            return true;
        }
    return front != nullptr;
}

void Customer::move() {
    auto* grid = products();
    if (!grid)
        return;
    const auto key = oneOf({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown,
                            Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End});
    const bool farther = key == Qt::Key_Home || key == Qt::Key_End;
    for (int i = farther ? 1 : 1 + any(8); i > 0; --i)
        QTest::keyClick(grid, key, farther ? Qt::ControlModifier : Qt::NoModifier);
}

void Customer::typeQuantity() {
    auto* grid = any(4) == 0 && visibleWidget("ctGrid2") ? visible<ui::qt::Grid>("ctGrid2") : products();
    if (!grid || !grid->gridModel()->takesQuantity(grid->currentIndex().row()))
        return;
    const QString texts[] = {"1", "2", "5", "12", "144", "0.5", "0", "9999", "1.x", "-3", ""};
    const auto text = oneOf(texts);
    if (text.isEmpty())
        return QTest::keyClick(grid, Qt::Key_Delete);
    QTest::keyClicks(grid, text.left(1));
    if (auto* editor = grid->editor())
        QTest::keyClicks(editor, text.mid(1));
    const auto end = oneOf({Qt::Key_Return, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Down, Qt::Key_Escape});
    if (auto* editor = grid->editor())
        QTest::keyClick(editor, end);
    if (auto* editor = grid->editor()) // what is not sold is not taken
        QTest::keyClick(editor, Qt::Key_Escape);
}

void Customer::pasteQuantities() {
    if (!products())
        return;
    QString column;
    for (int i = any(60); i >= 0; --i)
        column += QString::number(any(20)) + "\n";
    QApplication::clipboard()->setText(column);
    QTest::keyClick(products(), Qt::Key_V, Qt::ControlModifier);
}

void Customer::chooseGroup() {
    auto* list = visible<QComboBox>(QString("GDB(%1)").arg(any(4)));
    if (!list || !list->isEnabled() || list->count() == 0)
        return;
    list->setFocus();
    list->showPopup();
    for (int i = any(list->count() + 1); i >= 0; --i)
        QTest::keyClick(list->view(), oneOf({Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}));
    QTest::keyClick(list->view(), Qt::Key_Return);
}

void Customer::search() {
    if (!visibleWidget("txFind"))
        press("Search");
    auto* phrase = visibleWidget("txFind");
    if (!phrase)
        return;
    const QString phrases[] = {"a", "washer", "nothing has this", "10", "e"};
    replaceText(*phrase, oneOf(phrases));
    const char* const buttons[] = {"cbFirst", "cbNext", "cbPrev", "cbDesc", "cbCode", "cbCancel"};
    for (int i = any(5); i >= 0; --i)
        press(oneOf(buttons));
    if (auto* window = visibleWidget("Find"); window && !QApplication::activeModalWidget())
        QTest::keyClick(window, Qt::Key_Escape);
}

void Customer::clickPage(const char* name) {
    auto* view = visible<QWebEngineView>(name);
    if (!view || !view->focusProxy())
        return;
    const QPoint place(any(view->width()), any(view->height()));
    QTest::mouseClick(view->focusProxy(), Qt::LeftButton, {}, place);
}

void Customer::fillInDetail() {
    const char* const boxes[] = {"txOrgName", "txAtten",   "txStreet", "txCity",  "txState",
                                 "txZip",     "txCountry", "txPhone",  "txOrdNo", "txComment"};
    const QString texts[] = {
        "Marlowe & Sons", "3 Mill Lane", "01632 960 118", "\"quoted\"", "M\u00FCller \u03C0", "",
        "; = [x]",        "a b  c"};
    if (auto* box = visibleWidget(oneOf(boxes)))
        replaceText(*box, oneOf(texts));
}

void Customer::fillInDate() {
    const QString dates[][3] = {{"30", "11", "26"}, {"1", "1", "27"}, {"31", "2", "26"}, {"", "", ""}};
    const auto& date = dates[any(4)];
    for (int i = 0; i < 3; ++i)
        if (auto* box = visibleWidget(QString("txDel(%1)").arg(i)); box && !QApplication::activeModalWidget())
            replaceText(*box, date[i]);
}

// While the order is up, what is shown of its lines adds up to what is shown as its total. Deliberate:
// repricing ends at the first line that was ordered before a clear and not since, and the total stays until
// the next check out.
void Customer::compareTotals() {
    const auto* grid = visible<ui::qt::Grid>("ctGrid2");
    const auto* label = visible<QLabel>("lbTotOrd");
    if (!grid || !label || grid->editor() || m_repriced)
        return;
    const auto sum = sumOf(*grid->model());
    if (sum != centsOf(label->text()))
        complain("the lines add up to " + std::to_string(sum) + " cents, and the total is " +
                 label->text().toStdString());
}

bool Customer::press(const char* button) {
    auto* widget = visibleWidget(button);
    if (!widget || !widget->isEnabled())
        return false;
    QTest::mouseClick(widget, Qt::LeftButton);
    return true;
}

void Customer::complain(const std::string& what) {
    ++m_faults;
    std::fprintf(stderr, "%s\n", what.c_str());
}

int Customer::any(int below) {
    return std::uniform_int_distribution<int>(0, std::max(below, 1) - 1)(m_random);
}

}
