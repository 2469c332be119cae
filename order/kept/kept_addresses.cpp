#include "base/code_page.h"
#include "base/text.h"
#include "order/kept/kept_database.h"

namespace order {
namespace {

// Names that differ in letter case only are the same name.
std::string keyOf(std::string_view name) {
    return storedText(base::upper(base::trim(name)));
}

}

std::vector<KeptAddress> KeptOrders::addresses() const {
    return m_database->guarded([](const SqlDatabase& sql) {
        auto statement = sql.prepare("select name, " + addressNames() + " from addresses order by name_key");
        std::vector<KeptAddress> found;
        while (statement.next()) {
            int column = 0;
            auto& address = found.emplace_back();
            address.name = base::fromUtf8(statement.text(column++));
            for (const auto& field : addressColumns)
                address.details.*field.text = base::fromUtf8(statement.text(column++));
        }
        return found;
    });
}

void KeptOrders::saveAddress(const KeptAddress& address) {
    m_database->guarded([&](const SqlDatabase& sql) {
        auto statement = sql.prepare("insert or replace into addresses(name_key, name, " + addressNames() +
                                     ") values(?, ?, " + addressMarks() + ")");
        statement.bind(keyOf(address.name)).bind(storedText(base::trim(address.name)));
        for (const auto& field : addressColumns)
            statement.bind(storedText(address.details.*field.text));
        statement.run();
    });
}

void KeptOrders::removeAddress(std::string_view name) {
    m_database->guarded([&](const SqlDatabase& sql) {
        sql.prepare("delete from addresses where name_key = ?").bind(keyOf(name)).run();
    });
}

}
