#pragma once

#include <filesystem>
#include <string_view>

namespace order {

/// The scratch basket of an order, in `UserFolder`.
inline constexpr std::string_view basketFile = "Basket.dat";

/// Makes the basket file of a new order: the old one, if any, is deleted. An order can be taken without
/// the file, so errors are ignored.
void startBasketFile(const std::filesystem::path& userFolder);

/// The closing sequence's deletion. Deliberate: it is the file in `ProgramFolder` that goes; the one in
/// `UserFolder` stays until the next order starts. Errors are ignored.
void deleteProgramFolderBasket(const std::filesystem::path& programFolder);

}
