#pragma once

namespace pages {

/// Whether the order is charged with tax.
enum class TaxStatus { taxed, exempt };

}
