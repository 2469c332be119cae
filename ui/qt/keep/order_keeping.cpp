#include "ui/qt/keep/order_keeping.h"

#include "base/errors.h"
#include "base/numbers.h"
#include "ui/qt/keep/unfinished_text.h"
#include "ui/qt/widgets/qt_text.h"

#include <utility>

namespace ui::qt {
namespace {

constexpr int delayMs = 200; // behind the first key that waits

std::vector<WantedLine> wantedOf(const order::UnfinishedOrder& order) {
    std::vector<WantedLine> lines;
    lines.reserve(order.lines.size());
    for (const auto& line : order.lines)
        lines.push_back({.code = line.code,
                         .quantity = base::textOf(line.quantity),
                         .description = line.description,
                         .price = line.price,
                         .record = line.record});
    return lines;
}

}

OrderKeeping::OrderKeeping(const Surroundings& surroundings, order::JournalOwner owner,
                           const std::filesystem::path& folder)
    : m_around(surroundings),
      m_owner(std::move(owner)),
      m_folder(folder),
      m_journal(m_around.catalog, m_owner, folder, m_file) {
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &OrderKeeping::flushAtLast);
    connect(&m_around.order, &OrderScreen::toolbarChanged, this, [this] {
        if (!m_journal.path().empty()) // totals change alone when the tax does
            flushSoon();
    });
    m_around.order.watch(this);
}

OrderKeeping::~OrderKeeping() {
    m_around.order.watch(nullptr);
    flushAtLast();
}

void OrderKeeping::quantityChanged(std::int32_t product, float quantity) {
    m_journal.quantityChanged(product, quantity);
    flushSoon();
}

void OrderKeeping::cleared() {
    m_journal.cleared();
    flushSoon();
}

void OrderKeeping::flushSoon() {
    if (!m_soon.isActive())
        m_soon.start(delayMs);
}

void OrderKeeping::flush() {
    m_soon.stop();
    m_journal.flush(m_around.order.basket().totals());
    tellFailure();
}

// Also while a message box that ends the program is up: nothing is guarded any more then. A catalogue that is
// damaged is told by whoever meets it next.
void OrderKeeping::flushAtLast() {
    try {
        flush();
    } catch (const base::ProgramEnd&) {
        m_around.guard.run([] {});
    }
}

void OrderKeeping::tellFailure() {
    const auto failure = m_journal.takeFailure();
    if (!failure.empty())
        m_around.offers.say(toQt(failure));
}

void OrderKeeping::orderLeft(const order::OrderContents& left) {
    if (!isSameOrder(left))
        return;
    m_journal.orderLeft(m_around.order.basket().totals());
    tellFailure();
}

// Printing takes its time, in which the order can be changed.
bool OrderKeeping::isSameOrder(const order::OrderContents& left) const {
    const auto& basket = m_around.order.basket();
    auto row = left.rows.begin();
    for (const auto& line : basket.lines()) {
        if (line.quantity <= 0)
            continue;
        while (row != left.rows.end() && base::parseNumber(row->quantity) == 0)
            ++row;
        if (row == left.rows.end() || row->code != m_around.catalog.products.at(line.product).code() ||
            order::typedQuantity(row->quantity) != line.quantity)
            return false;
        ++row;
    }
    return left.totals == basket.totals();
}

// A hundred thousand lines take longer to read than the window may stand still.
void OrderKeeping::look() {
    m_search = std::jthread([this] {
        auto found = order::unfinishedOrders(m_folder, m_owner);
        QMetaObject::invokeMethod(this, m_around.guard([this, found = std::move(found)] { present(found); }),
                                  Qt::QueuedConnection);
    });
}

void OrderKeeping::present(const order::FoundOrders& found) {
    for (const auto& order : found.orders)
        if (order.file != m_journal.path() && !order.keptForLater)
            offer(order);
    for (const auto& complaint : found.complaints)
        m_around.offers.say(toQt(complaint));
    emit looked();
}

void OrderKeeping::offer(const order::UnfinishedOrder& order) {
    m_around.offers.offer(
        {.sentence = "You have " + unfinishedText(order, QDateTime::currentDateTime()) + ".",
         .choices = {{"OfferContinue", "Continue", [this, order] { takeOver(order); }},
                     {"OfferLater", "Keep for later", [this, order] { putOff(order); }},
                     {"OfferDelete", "Delete", [this, order] { offerUndo(order); }}}});
}

// The old file stays until the lines are in the new one, which then names it: of the two only one is ever
// found, whenever the program ends.
void OrderKeeping::takeOver(const order::UnfinishedOrder& order) {
    m_around.intake.take(wantedOf(order),
                         {.title = "Unfinished order",
                          .sentence = "This is " + unfinishedText(order, QDateTime::currentDateTime()) +
                                      ". What is on the new order already stays as it is.",
                          .overlap = Overlap::keep,
                          .mayChooseOverlap = false,
                          .look = IntakeDesk::Look::ifDifferent,
                          .taken =
                              [this, file = order.file] {
                                  m_journal.takesOver(file);
                                  flush();
                              },
                          .refused = [this, order] { offer(order); }});
}

void OrderKeeping::putOff(const order::UnfinishedOrder& order) {
    m_around.offers.offerNext(
        {.sentence = order::keepForLater(order)
                         ? QString("It is kept. You find it again under More, Orders.")
                         : QString("That cannot be written down: it will be offered again.")});
}

// It is gone when the bar is: nothing is lost by a slip.
void OrderKeeping::offerUndo(const order::UnfinishedOrder& order) {
    m_around.offers.offerNext({.sentence = "The unfinished order is deleted when you close this line.",
                               .choices = {{"OfferUndo", "Undo", [this, order] { offer(order); }}},
                               .onClosed = [this, order] {
                                   if (!order::deleteUnfinished(order))
                                       m_around.offers.say("The unfinished order cannot be deleted: " +
                                                           pathToQt(order.file));
                               }});
}

}
