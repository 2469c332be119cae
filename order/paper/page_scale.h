#pragma once

class QPDFObjectHandle;

namespace order {

/// By how much what a page of a PDF shows is enlarged in width, as the page says before it paints anything.
[[nodiscard]] double pageScale(QPDFObjectHandle page);

}
