#pragma once

#include <string_view>

namespace platform {

enum class Icon { none, information, question, exclamation, critical };
enum class Answer { yes, no };

/// What the program tells and asks the user, one box at a time. Texts are in the code page; a line
/// feed starts a new line.
class MessageBox {
public:
    virtual ~MessageBox() = default;

    /// Returns when the user has read it.
    virtual void show(Icon icon, std::string_view title, std::string_view text) = 0;

    /// Yes or No; closing the box counts as No. Enter gives the default answer.
    virtual Answer ask(Icon icon, std::string_view title, std::string_view text, Answer defaultAnswer) = 0;
};

}
