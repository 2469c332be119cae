#pragma once

#include "publish/complaint.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace publish {

/// A template's text as the viewer goes through it, and the complaints about it. Places are those of the text
/// in the viewer's hands; complaints name the lines of the file. Of one rule the first few are told one by
/// one.
class TemplateReport {
public:
    TemplateReport(std::string file, std::string_view text, Complaints& complaints);

    /// From now on places count without the `length` characters that stood at `start`.
    void cut(std::size_t start, std::size_t length);

    /// The text is a string, or a function that makes it when it is needed.
    template <typename Text>
    void error(std::string_view rule, std::size_t at, const Text& text) {
        add(Complaint::Weight::error, rule, at, text);
    }

    template <typename Text>
    void warning(std::string_view rule, std::size_t at, const Text& text) {
        add(Complaint::Weight::warning, rule, at, text);
    }

    /// Of the whole file where there is no place.
    template <typename Text>
    void add(Complaint::Weight weight, std::string_view rule, std::optional<std::size_t> at,
             const Text& text) {
        if (!isToBeTold(weight, rule))
            return;
        if constexpr (std::is_invocable_v<Text>)
            tell(weight, rule, at, text());
        else
            tell(weight, rule, at, std::string(text));
    }

    [[nodiscard]] bool holdsError() const { return m_holdsError; }

private:
    [[nodiscard]] bool isToBeTold(Complaint::Weight weight, std::string_view rule);
    void tell(Complaint::Weight weight, std::string_view rule, std::optional<std::size_t> at,
              std::string text);
    [[nodiscard]] std::size_t lineOf(std::size_t at) const;

    std::string m_file;
    std::vector<std::size_t> m_lineEnds;
    std::size_t m_cutStart = 0;
    std::size_t m_cutLength = 0;
    std::map<std::string, std::size_t, std::less<>> m_counts; // by rule
    Complaints& m_complaints;
    bool m_holdsError = false;
};

/// A piece of a template as a message shows it: UTF-8, on one line, cut where it grows long.
[[nodiscard]] std::string shown(std::string_view text);

}
