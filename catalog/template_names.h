#pragma once

#include <string_view>

/// The templates that a catalogue's folder holds, by the names under which they are asked for. Letter case
/// does not count when they are looked up.
namespace catalog {

inline constexpr std::string_view productTemplate = "Catalog.Ect";
inline constexpr std::string_view firstGroupTemplate = "GroupI.Ect";
inline constexpr std::string_view secondGroupTemplate = "GroupT.Ect";
inline constexpr std::string_view bannerTemplate = "Banner.Ect";
inline constexpr std::string_view welcomeTemplate = "Welcome.ECT";

/// Those of the order; the ones without tax serve tax-exempt orders too.
inline constexpr std::string_view printTemplate = "PrtOrd.ect";
inline constexpr std::string_view printTemplateWithoutTax = "PrtOrd_NT.ect";
inline constexpr std::string_view mailTemplate = "EmlOrd.ect";
inline constexpr std::string_view mailTemplateWithoutTax = "EmlOrd_NT.ect";

/// The group page style that asks for `firstGroupTemplate`; any other asks for `secondGroupTemplate`.
inline constexpr char firstGroupStyle = 'I';

}
