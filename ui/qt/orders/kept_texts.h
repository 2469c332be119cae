#pragma once

#include "order/kept/kept_orders.h"
#include "order/kept/unfinished_orders.h"
#include "ui/intake.h"

#include <QString>

#include <span>
#include <string>
#include <vector>

/// What windows say of orders that were kept.
namespace ui::qt {

/// "Printed".
[[nodiscard]] QString departureText(order::Departure departure);

/// "Printed on Laser 4".
[[nodiscard]] QString departureText(const order::KeptOrder& order);

/// Day and time in the system's short form, by the local clock.
[[nodiscard]] QString momentText(std::chrono::system_clock::time_point moment);

/// The chosen order in some lines: when and how it left, number, delivery date and address, comment.
[[nodiscard]] QString orderText(const order::KeptOrder& order);
[[nodiscard]] QString orderText(const order::UnfinishedOrder& order);

/// "Total 1,123.05, of which tax 30.00".
[[nodiscard]] QString totalsText(const order::Totals& totals);

/// The document as a page: a mail that is none becomes one that shows its text.
[[nodiscard]] std::string documentPage(const order::OrderDocument& document);

/// These rows, counted from 0, or all where there are none, as they would be ordered again, with the prices
/// of then. Rows without a quantity are left out.
[[nodiscard]] std::vector<WantedLine> wantedAgain(const std::vector<order::DocumentRow>& rows,
                                                  std::span<const int> chosen);

/// Whether every word of the text begins a word of the order's codes and descriptions, in any letter case.
[[nodiscard]] bool holdsWords(const order::UnfinishedOrder& order, const QString& text);

}
