#pragma once

#include "publish/complaint.h"

#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace publish {

struct PictureHeader;

/// Whether this program was built with the library that scales pictures. Without it a PictureScaler lets
/// every picture pass and warns.
[[nodiscard]] bool canScalePictures();

/// Whether a file of this name is of a kind that is scaled: .jpg, .jpeg, .png, in any letter case.
[[nodiscard]] bool isScalablePicture(std::string_view name);

/// Scales pictures down so that neither edge is longer than so many pixels. JPEG (quality 85) and PNG stay
/// what they are; what needs no scaling and what is neither stays as it is, to the byte. The way up that a
/// camera notes in a JPEG is applied to the pixels, and its colour profile goes along; other notes are
/// dropped. The same picture always gives the same bytes with the same library.
/// Several threads may use one scaler; pictures too large to be in memory beside each other then wait for
/// each other.
class PictureScaler {
public:
    /// At least 1.
    explicit PictureScaler(int longestEdge) : m_longestEdge(longestEdge) {}

    /// A picture that cannot be scaled, damaged or of more than 100 megapixels, is given back as it is,
    /// with a warning: rules "picture-damaged", "picture-too-large", "picture-not-scaled". The name is for
    /// the warning.
    [[nodiscard]] std::string scaled(std::string bytes, const std::string& name,
                                     Complaints& complaints) const;

private:
    [[nodiscard]] bool isSmall(const PictureHeader& header) const;
    [[nodiscard]] std::optional<std::string> scale(std::string_view bytes, const PictureHeader& header) const;

    int m_longestEdge;
    mutable std::mutex m_large;
};

}
