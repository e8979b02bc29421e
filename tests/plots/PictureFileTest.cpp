// Picture files against a picture that was looked at.
#include "files/PictureFile.h"
#include "desk/compute/ValidateAndFit.h"
#include "plots/DistributionPlots.h"
#include "plots/RiskMapPicture.h"
#include "tests/support/Cases.h"
#include "tests/support/TestSession.h"

#include <cairo.h>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <tuple>

namespace metrisk::testing {
namespace {

using Image = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

cairo_status_t take(void* stream, unsigned char* data, unsigned int length) {
    static_cast<std::istream*>(stream)->read(reinterpret_cast<char*>(data), length);
    return *static_cast<std::istream*>(stream) ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_READ_ERROR;
}

Image imageOf(std::istream& png) {
    return {cairo_image_surface_create_from_png_stream(take, &png), cairo_surface_destroy};
}

/// Mean difference of a pixel's colours, 0 to 255; fonts differ a little between machines.
double difference(const Image& a, const Image& b) {
    const int width = cairo_image_surface_get_width(a.get());
    const int height = cairo_image_surface_get_height(a.get());
    if (width != cairo_image_surface_get_width(b.get()) || height != cairo_image_surface_get_height(b.get()))
        return 255;
    double sum = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width * 4; ++x) {
            const auto at = [&](const Image& image) {
                return cairo_image_surface_get_data(
                    image.get())[y * cairo_image_surface_get_stride(image.get()) + x];
            };
            if (x % 4 != 3) sum += std::abs(at(a) - at(b));
        }
    return sum / (width * height * 3);
}

TEST(PictureFile, LooksLikeThePictureThatWasLookedAt) {
    TestSession test;
    enter(test.record, twoSided(1, 0.5, 90));
    test.record.NominalUnits = test.record.SU_ToleranceUnits = "V";
    ValidateAndFit(test.session);
    const DistributionPlot plot = subjectPlot(test.record, {});
    const RiskMap map(test.record, {});
    const MapRequest request{
        {MapQuantity::Ratio, 1, 20}, {MapQuantity::SubjectPct, 60, 99}, 60, 60, map.present()};
    const ContourMap contours =
        riskMapPicture(map.grid(request), request, MappedRisk::FalseReject, 0, map.present());
    const auto draw = [&](DrawingSurface& surface) { DrawDistributionPlot(surface, plot, {}); };
    const auto drawMap = [&](DrawingSurface& surface) { DrawContourMap(surface, contours, {}); };
    const std::tuple<const char*, PictureSize, std::function<void(DrawingSurface&)>> pictures[] = {
        {"lognormal", {480, 540}, draw}, {"risk-map", {480, 360}, drawMap}};
    for (const auto& [name, size, paint] : pictures) {
        const std::string png = pictureBytes(PictureFormat::Png, size, "", paint);
        const std::string path = METRISK_SOURCE_DIR "/tests/plots/data/" + std::string(name) + ".png";
        if (std::getenv("METRISK_GOLDEN")) std::ofstream(path, std::ios::binary) << png;
        std::istringstream made(png);
        std::ifstream kept(path, std::ios::binary);
        EXPECT_LT(difference(imageOf(made), imageOf(kept)), 2.5) << name;
    }
}

} // namespace
} // namespace metrisk::testing
