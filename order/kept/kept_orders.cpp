#include "order/kept/kept_orders.h"

#include "base/code_page.h"
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

// Removes the orders whose ids the statement tells for these values, and what does not go with them by
// itself.
std::size_t removeThose(const SqlDatabase& sql, const std::string& ids, const auto&... values) {
    SqlTransaction transaction(sql);
    for (const char* text :
         {"delete from order_words where rowid in (", "delete from orders where id in ("}) {
        auto statement = sql.prepare(text + ids + ")");
        (statement.bind(values), ...);
        statement.run();
    }
    const auto count = sql.changes();
    sql.run("delete from ordered_codes where supplier not in (select supplier from orders)");
    transaction.commit();
    return static_cast<std::size_t>(count);
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
        auto statement = sql.prepare("select code from ordered_codes where supplier = ?");
        statement.bind(storedText(supplier));
        std::vector<std::string> found;
        while (statement.next())
            found.push_back(base::fromUtf8(statement.text(0)));
        return found;
    });
    std::sort(codes.begin(), codes.end()); // by the bytes of the code page
    return codes;
}

void KeptOrders::remove(std::int64_t id) {
    m_database->guarded([&](const SqlDatabase& sql) { removeThose(sql, "?", id); });
}

std::size_t KeptOrders::removeBefore(std::chrono::system_clock::time_point before, std::string_view supplier,
                                     std::size_t most) {
    return m_database->guarded([&](const SqlDatabase& sql) {
        return removeThose(
            sql,
            "select id from orders where left_at < ? and supplier = ifnull(nullif(?, ''), supplier)"
            " order by left_at, id limit ?",
            timeText(before), storedText(supplier), static_cast<std::int64_t>(most));
    });
}

}
