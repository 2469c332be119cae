#pragma once

#include "platform/message_box.h"
#include "tests/support/journal.h"

#include <array>
#include <deque>
#include <string>
#include <string_view>

namespace support {

/// Answers as told, and writes every box down as "icon [title] text", a question with its default answer.
class FakeMessageBox : public platform::MessageBox {
public:
    explicit FakeMessageBox(Journal& journal) : m_journal(journal) {}

    /// The answers to come; when there is none left, the default answer is given.
    std::deque<platform::Answer> answers;

    void show(platform::Icon icon, std::string_view title, std::string_view text) override {
        m_journal.add(line(icon, title, text));
    }

    platform::Answer ask(platform::Icon icon, std::string_view title, std::string_view text,
                         platform::Answer defaultAnswer) override {
        m_journal.add(line(icon, title, text) +
                      (defaultAnswer == platform::Answer::yes ? " (Yes)" : " (No)"));
        if (answers.empty())
            return defaultAnswer;
        const auto answer = answers.front();
        answers.pop_front();
        return answer;
    }

private:
    static std::string line(platform::Icon icon, std::string_view title, std::string_view text) {
        constexpr std::array names{"none", "information", "question", "exclamation", "critical"};
        return std::string(names.at(static_cast<std::size_t>(icon))) + " [" + std::string(title) + "] " +
               std::string(text);
    }

    Journal& m_journal;
};

}
