#include "ui/intake.h"

#include "base/numbers.h"
#include "base/text.h"
#include "ui/quantity.h"

#include <unordered_map>

namespace ui {
namespace {

constexpr std::size_t keyLength = catalog::IndexRecord::keyField.width;

/// Gathers the lines of an intake.
class Planner {
public:
    Planner(const catalog::Catalog& catalog, const order::Basket& basket)
        : m_catalog(catalog), m_basket(basket), m_decimals(catalog.parameters.header().quantityDecimals()) {}

    void plan(const WantedLine& line) {
        if (auto reason = refusal(line))
            m_intake.refused.push_back({line, std::move(*reason)});
    }

    [[nodiscard]] Intake finished() {
        for (const auto& gathered : m_gathered) {
            if (gathered.parts == 0) // every line of it was refused
                continue;
            const auto product = gathered.product;
            m_intake.lines.push_back(
                {product, textOfParts(gathered.parts), m_basket.lineOf(product).quantity});
            if (gathered.before)
                m_intake.prices.push_back(
                    {product, *gathered.before, m_catalog.products.at(product).price()});
        }
        return std::move(m_intake);
    }

private:
    struct Gathered {
        std::int32_t product;
        std::int64_t parts = 0;
        std::optional<float> before{}; // another price than today's
    };

    // What is wrong with the line; nothing when it was gathered.
    std::optional<std::string> refusal(const WantedLine& line) {
        if (!line.unclear.empty())
            return line.unclear;
        const auto code = base::trim(line.code);
        const auto product = isStillAt(line.record, code) ? line.record : recordOfCode(m_catalog, code);
        if (code.empty() && product == 0)
            return "No code";
        if (product == 0)
            return "No article has this code";
        if (!m_catalog.products.at(product).isProduct())
            return "A group, not an article";
        // An order below 0 would end the program; whoever wants such an article types it at its place.
        if (m_catalog.products.at(product).price() < 0)
            return "Its price is below 0";
        return gather(product, base::trim(line.quantity), line.price);
    }

    [[nodiscard]] bool isStillAt(std::int32_t record, std::string_view code) const {
        return record >= 1 && record <= m_catalog.products.count() &&
               m_catalog.products.at(record).isProduct() && m_catalog.products.at(record).code() == code;
    }

    std::optional<std::string> gather(std::int32_t product, std::string_view quantity,
                                      std::optional<float> price) {
        if (quantity.empty())
            return "No quantity";
        if (quantity.starts_with('-'))
            return "Less than nothing";
        if (auto complaint = quantityComplaint(quantity, m_decimals))
            return complaint;
        const auto parts = partsOf(quantity);
        if (parts == 0)
            return "The quantity is 0";
        if (!parts || !add(product, *parts, price))
            return "Too much together";
        return std::nullopt;
    }

    // False when the order could not hold so much beside what is on it.
    bool add(std::int32_t product, std::int64_t parts, std::optional<float> price) {
        const auto [found, isNew] = m_places.try_emplace(product, m_gathered.size());
        if (isNew)
            m_gathered.push_back({product});
        auto& gathered = m_gathered[found->second];
        if (!isSold(product, textOfParts(gathered.parts + parts)))
            return false;
        gathered.parts += parts;
        if (price && !gathered.before && *price != m_catalog.products.at(product).price())
            gathered.before = price;
        return true;
    }

    [[nodiscard]] bool isSold(std::int32_t product, const std::string& quantity) const {
        const auto together = quantityOnceTaken(m_basket.lineOf(product).quantity, quantity, Overlap::add);
        return together && !quantityComplaint(*together, m_decimals) &&
               !quantityComplaint(quantity, m_decimals);
    }

    const catalog::Catalog& m_catalog;
    const order::Basket& m_basket;
    int m_decimals;
    Intake m_intake;
    std::vector<Gathered> m_gathered;
    std::unordered_map<std::int32_t, std::size_t> m_places; // of products in the lines gathered
};

}

std::int32_t recordOfCode(const catalog::Catalog& catalog, std::string_view code) {
    const auto trimmed = base::trim(code);
    const auto record = trimmed.empty() ? 0 : catalog.codes.find(trimmed);
    if (record < 1 || record > catalog.products.count())
        return 0;
    const bool whole =
        trimmed.size() <= keyLength || base::equalIgnoringCase(catalog.products.at(record).code(), trimmed);
    return whole ? record : 0;
}

Intake planIntake(const catalog::Catalog& catalog, const order::Basket& basket,
                  std::span<const WantedLine> lines) {
    Planner planner(catalog, basket);
    for (const auto& line : lines)
        planner.plan(line);
    catalog.requireWhole();
    return planner.finished();
}

std::optional<std::string> quantityOnceTaken(float ordered, std::string_view wanted, Overlap overlap) {
    if (ordered == 0 || overlap == Overlap::replace)
        return std::string(wanted);
    const auto there = partsOf(base::textOf(ordered));
    const auto more = partsOf(wanted);
    if (overlap == Overlap::keep || !there || !more)
        return std::nullopt;
    return textOfParts(*there + *more);
}

}
