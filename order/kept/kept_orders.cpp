#include "order/kept/kept_orders.h"

#include "base/code_page.h"
#include "base/numbers.h"
#include "base/text.h"
#include "order/kept/kept_database.h"
#include "order/kept/order_rows.h"
#include "order/kept/order_search.h"
#include "order/kept/time_text.h"

#include <algorithm>
#include <utility>

namespace order {
namespace {

std::vector<KeptOrderHead> headsOf(SqlStatement& statement) {
    std::vector<KeptOrderHead> heads;
    while (statement.next())
        heads.push_back(headOf(statement));
    return heads;
}

// What deletes the words of orders that go as well; the rest of them goes by itself.
void removeWhere(const SqlDatabase& sql, const std::string& condition, std::string_view first,
                 std::string_view second) {
    for (const auto& statement :
         {"delete from order_words where rowid in (select id from orders where " + condition + ")",
          "delete from orders where " + condition})
        sql.prepare(statement).bind(first).bind(second).run();
}

}

KeptOrders::KeptOrders(const std::filesystem::path& file) : m_database(std::make_unique<Database>(file)) {}

KeptOrders::~KeptOrders() = default;

const std::string& KeptOrders::complaint() const {
    return m_database->complaint;
}

std::int64_t KeptOrders::add(const KeptOrder& order) {
    return m_database->guarded([&](const SqlDatabase& sql) {
        SqlTransaction transaction(sql);
        const auto id = insertOrder(sql, order);
        transaction.commit();
        return id;
    });
}

std::vector<KeptOrderHead> KeptOrders::find(const KeptOrderFilter& filter) const {
    const auto query = searchQuery(storedText(filter.text));
    return m_database->guarded([&](const SqlDatabase& sql) {
        auto statement = sql.prepare(
            "select " + std::string(headColumns) +
            (query.empty() ? " from orders where true"
                           : " from order_words cross join orders on id = order_words.rowid"
                             " where order_words match ?") +
            (filter.supplier.empty() ? "" : " and supplier = ?") + " order by left_at desc, id desc");
        if (!query.empty())
            statement.bind(query);
        if (!filter.supplier.empty())
            statement.bind(storedText(filter.supplier));
        return headsOf(statement);
    });
}

std::optional<KeptOrder> KeptOrders::read(std::int64_t id) const {
    return m_database->guarded([&](const SqlDatabase& sql) { return readOrder(sql, id); });
}

std::vector<std::pair<std::string, std::string>> KeptOrders::suppliers() const {
    return m_database->guarded([](const SqlDatabase& sql) {
        // The other columns are those of the row that has the maximum.
        auto statement = sql.prepare(
            "select supplier, catalogue, max(left_at) from orders group by supplier order by supplier");
        std::vector<std::pair<std::string, std::string>> found;
        while (statement.next())
            found.emplace_back(base::fromUtf8(statement.text(0)), base::fromUtf8(statement.text(1)));
        return found;
    });
}

std::vector<std::string> KeptOrders::orderedCodes(std::string_view supplier) const {
    auto codes = m_database->guarded([&](const SqlDatabase& sql) {
        auto statement = sql.prepare(
            "select distinct code from lines where order_id in (select id from orders where supplier = ?)");
        statement.bind(storedText(supplier));
        std::vector<std::string> found;
        while (statement.next())
            found.push_back(base::upper(base::fromUtf8(statement.text(0))));
        return found;
    });
    std::sort(codes.begin(), codes.end());
    codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
    if (!codes.empty() && codes.front().empty())
        codes.erase(codes.begin());
    return codes;
}

void KeptOrders::remove(std::int64_t id) {
    m_database->guarded([&](const SqlDatabase& sql) {
        SqlTransaction transaction(sql);
        sql.prepare("delete from order_words where rowid = ?").bind(id).run();
        sql.prepare("delete from orders where id = ?").bind(id).run();
        transaction.commit();
    });
}

std::size_t KeptOrders::removeBefore(std::chrono::system_clock::time_point before,
                                     std::string_view supplier) {
    return m_database->guarded([&](const SqlDatabase& sql) {
        SqlTransaction transaction(sql);
        removeWhere(sql, "left_at < ? and supplier = ifnull(nullif(?, ''), supplier)", timeText(before),
                    storedText(supplier));
        const auto count = sql.changes();
        transaction.commit();
        return static_cast<std::size_t>(count);
    });
}

}
