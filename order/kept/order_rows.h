#pragma once

#include "order/kept/kept_orders.h"
#include "order/kept/sqlite.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// A kept order as rows of the database's tables.
namespace order {

/// Those of `headOf`.
inline constexpr std::string_view headColumns =
    "id, supplier, catalogue, left_at, departure, number, line_count, total";

[[nodiscard]] KeptOrderHead headOf(const SqlStatement& row);

/// Returns the order's id. Several rows are written, so this belongs into a transaction.
std::int64_t insertOrder(const SqlDatabase& sql, const KeptOrder& order);

[[nodiscard]] std::optional<KeptOrder> readOrder(const SqlDatabase& sql, std::int64_t id);

}
