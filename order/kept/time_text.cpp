#include "order/kept/time_text.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>

namespace order {
namespace {

using std::chrono::system_clock;

// The digits stand for their parts in the order year, month, day, hour, minute, second.
constexpr std::string_view form = "0000-00-00T00:00:00Z";

void appendPadded(std::string& out, std::int64_t value, std::size_t width) {
    const auto digits = std::to_string(value);
    out.append(width - std::min(width, digits.size()), '0').append(digits);
}

/// A time in its parts.
struct Parts {
    explicit Parts(system_clock::time_point time)
        : midnight(std::chrono::floor<std::chrono::days>(time)), day(midnight), rest(time - midnight) {}

    std::chrono::sys_days midnight;
    std::chrono::year_month_day day;
    std::chrono::hh_mm_ss<system_clock::duration> rest;
};

std::string text(const Parts& parts, std::string_view dash, std::string_view middle, std::string_view colon) {
    std::string out;
    appendPadded(out, int{parts.day.year()}, 4);
    appendPadded(out.append(dash), unsigned{parts.day.month()}, 2);
    appendPadded(out.append(dash), unsigned{parts.day.day()}, 2);
    appendPadded(out.append(middle), parts.rest.hours().count(), 2);
    appendPadded(out.append(colon), parts.rest.minutes().count(), 2);
    appendPadded(out.append(colon), parts.rest.seconds().count(), 2);
    return out;
}

bool hasForm(std::string_view text) {
    return std::equal(text.begin(), text.end(), form.begin(), form.end(),
                      [](char c, char wanted) { return wanted == '0' ? c >= '0' && c <= '9' : c == wanted; });
}

int number(std::string_view text, std::size_t at, std::size_t width) {
    int value = 0;
    std::from_chars(text.data() + at, text.data() + at + width, value);
    return value;
}

}

std::string timeText(system_clock::time_point time) {
    return text(Parts(time), "-", "T", ":") + 'Z';
}

std::string timeName(system_clock::time_point time) {
    const Parts parts(time);
    auto name = text(parts, "", "-", "") + '-';
    appendPadded(name, std::chrono::floor<std::chrono::microseconds>(parts.rest.subseconds()).count(), 6);
    return name;
}

std::optional<system_clock::time_point> timeOf(std::string_view text) {
    using namespace std::chrono;
    if (!hasForm(text))
        return std::nullopt;
    const year_month_day date{year(number(text, 0, 4)), month(static_cast<unsigned>(number(text, 5, 2))),
                              day(static_cast<unsigned>(number(text, 8, 2)))};
    const hours hour(number(text, 11, 2));
    const minutes minute(number(text, 14, 2));
    const seconds second(number(text, 17, 2));
    constexpr year first(1678), last(2261); // all whose nanoseconds 64 bits hold
    if (!date.ok() || date.year() < first || date.year() > last || hour >= days(1) || minute >= hours(1) ||
        second >= minutes(1))
        return std::nullopt;
    return sys_days(date) + hour + minute + second;
}

}
