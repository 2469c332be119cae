#pragma once

#include "platform/message_box.h"

#include <optional>

namespace ui::qt {

/// Message boxes over whatever window is in front. Texts are shown as they are, never as HTML.
class MessageBoxes final : public platform::MessageBox {
public:
    void show(platform::Icon icon, std::string_view title, std::string_view text) override;
    platform::Answer ask(platform::Icon icon, std::string_view title, std::string_view text,
                         platform::Answer defaultAnswer) override;

    /// What becomes of a question that nobody will answer.
    enum class Unanswered {
        isNo,
        endsProgram ///< asking throws base::Quit: No would be an answer that the user has not given
    };

    /// From now on no box comes up. What is open goes the same way as soon as its event loop has ended.
    void giveUp(Unanswered questions) { m_givenUp = questions; }

private:
    std::optional<Unanswered> m_givenUp;
};

}
