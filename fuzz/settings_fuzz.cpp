#include "base/text.h"
#include "catalog/settings_file.h"
#include "fuzz/require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

/// The value as it reads on a line of its own.
std::string readBack(std::string_view value) {
    return catalog::settingIn(catalog::withSetting("", {"S", "K"}, value), {"S", "K"});
}

// The bytes that a write took away and put in, where the rest of the file stayed as it was.
bool changesOnePlace(std::string_view before, std::string_view after) {
    const auto same = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first;
    const auto tail =
        std::mismatch(before.rbegin(), std::reverse_iterator(same), after.rbegin(), after.rend()).first;
    return std::find(same, tail.base(), '\n') == tail.base();
}

}

// A file, a line with the value to write: reading and writing agree, and no other line changes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto end = std::min(input.find('\n'), input.size());
    const auto value = input.substr(0, end);
    const auto file = std::string(input.substr(std::min(end + 1, input.size())));
    const auto other = catalog::settingIn(file, {"S", "L"});

    const auto written = catalog::withSetting(file, {"S", "K"}, value);
    fuzz::require(catalog::settingIn(written, {"S", "K"}) == readBack(value), "another value was read");
    fuzz::require(readBack(value).size() <= 249, "a value is too long");
    fuzz::require(catalog::settingIn(written, {"S", "L"}) == other, "another key changed");
    fuzz::require(catalog::withSetting(written, {"S", "K"}, value) == written,
                  "writing twice is not writing once");
    fuzz::require(changesOnePlace(file, written), "another line changed");
    return 0;
}
