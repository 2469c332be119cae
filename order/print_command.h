#pragma once

#include "order/order_writer.h"
#include "pages/scratch_page.h"
#include "platform/message_box.h"

#include <filesystem>
#include <string_view>

namespace order {

/// Where a page is printed.
class PrintTarget {
public:
    virtual ~PrintTarget() = default;

    /// Loads the page under the file's own address and prints it when it is there. The bytes are those just
    /// written to the file. Returns at once.
    virtual void print(const std::filesystem::path& file, std::string_view bytes) = 0;
};

/// The toolbar's "Print".
class PrintCommand {
public:
    PrintCommand(const OrderWriter& writer, const pages::ScratchPage& scratchPage,
                 platform::MessageBox& messageBox, PrintTarget& target);

    /// Checks the order, writes its page to the scratch page and hands it on, or tells why not. Throws
    /// base::DamagedFile for a damaged template and base::FileError for a page that cannot be written.
    void run(const OrderContents& order);

private:
    void tellFailure();

    const OrderWriter& m_writer;
    const pages::ScratchPage& m_scratchPage;
    platform::MessageBox& m_messageBox;
    PrintTarget& m_target;
};

}
