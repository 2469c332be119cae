#pragma once

#include <string>

namespace support {

/// A message as another program reads it; texts in UTF-8.
struct ReadMail {
    std::string headers; ///< their names, separated by commas
    std::string from;
    std::string to; ///< the addresses, separated by commas
    std::string subject;
    std::string date;
    std::string messageId;
    std::string type;
    std::string charset;
    std::string envelope; ///< those to whom it was delivered, as its mailbox has noted them
    std::string defects;  ///< how many the parser has found
    std::string body;
};

[[nodiscard]] ReadMail readMail(const std::string& message);

}
