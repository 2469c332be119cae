#pragma once

#include "order/kept/kept_orders.h"
#include "order/kept/sqlite.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace order {

/// The database file as it is open, or was put aside because it is damaged.
struct KeptOrders::Database {
    explicit Database(std::filesystem::path path);

    /// What the work gives. A failure becomes KeptOrdersError; damage is mended or put aside, and the work
    /// done once more.
    template <typename Work>
    auto guarded(Work work) {
        try {
            return work(connection());
        } catch (const SqlError& error) {
            recover(error);
        }
        try {
            return work(connection());
        } catch (const SqlError& error) {
            fail(error);
        }
    }

    std::filesystem::path file;
    std::string complaint;

private:
    const SqlDatabase& connection();
    void open();
    void openOrPutAside();
    void recover(const SqlError& error);
    void putAside();
    [[noreturn]] void fail(const SqlError& error) const;

    std::optional<SqlDatabase> m_sql; // none after a failure
};

/// The columns of a delivery address, and where they go.
struct AddressColumn {
    std::string_view name;
    std::string DeliveryDetails::*text;
};

inline constexpr std::array addressColumns{
    AddressColumn{"business", &DeliveryDetails::business},
    AddressColumn{"attention", &DeliveryDetails::attention},
    AddressColumn{"street", &DeliveryDetails::street},
    AddressColumn{"city", &DeliveryDetails::city},
    AddressColumn{"state", &DeliveryDetails::state},
    AddressColumn{"zip", &DeliveryDetails::zip},
    AddressColumn{"country", &DeliveryDetails::country},
    AddressColumn{"phone", &DeliveryDetails::phone},
};

/// "business, attention, ..." and "?, ?, ..." of all address columns.
[[nodiscard]] std::string addressNames();
[[nodiscard]] std::string addressMarks();

/// A text of the code page as it stands in the database, in UTF-8; characters outside the code page as
/// themselves wherever reading gives the same text again.
[[nodiscard]] std::string storedText(std::string_view text);

}
