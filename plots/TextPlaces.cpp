#include "plots/TextPlaces.h"

#include "drawing/PlotScale.h"

#include <algorithm>

namespace metrisk {

double TextPlaces::pixelX() const {
    return (edges_.right + edges_.left) / std::max(surface_.deviceWidth(), 1.0);
}

double TextPlaces::pixelY() const {
    return (edges_.top + edges_.bottom) * edges_.height / std::max(surface_.deviceHeight(), 1.0);
}

Place TextPlaces::placeOf(const std::string& text, double x, double y, double lines) const {
    const double width = surface_.TextWidth(text);
    const double top = y + lines * surface_.TextHeight();
    return {x - width / 2, x + width / 2, top + surface_.TextHeight(), top};
}

Place TextPlaces::insideSideways(Place place) const {
    const double edge = 2 * pixelX();
    const double width = place.right - place.left;
    place.left = std::max(std::min(place.left, edges_.right - edge - width), -edges_.left + edge);
    place.right = place.left + width;
    return place;
}

bool TextPlaces::isInside(const Place& place) const {
    const double slackX = pixelX() / 4, slackY = pixelY() / 4; // what touches the edge is inside
    return place.left >= -edges_.left - slackX && place.right <= edges_.right + slackX &&
           place.top <= edges_.top * edges_.height + slackY &&
           place.bottom >= -edges_.bottom * edges_.height - slackY;
}

bool TextPlaces::isFree(const Place& place) const {
    // Lines below each other do not touch.
    return std::none_of(taken_.begin(), taken_.end(),
                        [&](const Place& other) { return place.touches(other, 4 * pixelX(), -pixelY()); });
}

void TextPlaces::print(const std::string& text, const Place& place) {
    take(place);
    PrintAt(surface_, text, place.left, place.top, 0);
}

void TextPlaces::printCentred(const std::string& text, double x, double y, double lines) {
    if (const Place place = insideSideways(placeOf(text, x, y, lines)); !text.empty() && isInside(place))
        print(text, place);
}

} // namespace metrisk
