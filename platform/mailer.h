#pragma once

#include <string>

namespace platform {

/// A message to one recipient. Texts are in the code page, with references for what it lacks; lines of
/// the body end in LF or CR LF.
struct Mail {
    std::string to;
    std::string subject;
    std::string body;
    bool isHtml = false;
};

/// The mail system of this computer.
class Mailer {
public:
    virtual ~Mailer() = default;

    /// Whether messages leave without the user doing anything more. Where they do not, `send` opens them
    /// in the user's mail program, for the user to send.
    [[nodiscard]] virtual bool placesInOutbox() const = 0;

    enum class Outcome {
        placed,      ///< accepted by the mail system
        draftOpened, ///< waits in the user's mail program
        failed
    };

    /// The caller waits; the windows stay alive meanwhile.
    virtual Outcome send(const Mail& mail) = 0;
};

}
