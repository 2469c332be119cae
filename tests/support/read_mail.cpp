#include "tests/support/read_mail.h"

#include "base/files.h"
#include "tests/support/test_folder.h"

#include <cstdlib>
#include <vector>

namespace support {

ReadMail readMail(const std::string& message) {
    const auto folder = testFolder("mail");
    base::replaceFile(folder / "mail", message);
    const auto quoted = [](const std::filesystem::path& path) { return "\"" + path.string() + "\""; };
    const auto command = TAVORINE_PYTHON " " + quoted(TAVORINE_READ_MAIL) + " < " + quoted(folder / "mail") +
                         " > " + quoted(folder / "read");
    EXPECT_EQ(std::system(command.c_str()), 0);
    const auto text = base::readFile(folder / "read").value();
    constexpr int partsBeforeBody = 10;
    std::vector<std::string> parts;
    std::size_t at = 0;
    for (int i = 0; i < partsBeforeBody; ++i) {
        const auto end = text.find("\n--\n", at);
        parts.push_back(text.substr(at, end - at));
        at = end + 4;
    }
    return {parts[0], parts[1], parts[2], parts[3], parts[4],       parts[5],
            parts[6], parts[7], parts[8], parts[9], text.substr(at)};
}

}
