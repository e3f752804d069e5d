#include "platform/picture/colour_transform.h"

#include "platform/picture/colour_grid.h"

#include <lcms2.h>
#include <lcms2_plugin.h>

#include <QCache>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <mutex>
#include <span>
#include <type_traits>

namespace {

constexpr qsizetype longestProfile = 4 << 20;

// --------------------------------------------------------------------------------------------------------- the library

struct ContextEnd {
    void operator()(cmsContext context) const { cmsDeleteContext(context); }
};
struct ProfileEnd {
    void operator()(cmsHPROFILE profile) const { cmsCloseProfile(profile); }
};
struct TransformEnd {
    void operator()(cmsHTRANSFORM transform) const { cmsDeleteTransform(transform); }
};
using Context = std::unique_ptr<std::remove_pointer_t<cmsContext>, ContextEnd>;
using Profile = std::unique_ptr<void, ProfileEnd>;
using Transform = std::unique_ptr<void, TransformEnd>;

/// A damaged profile may ask for any amount of memory.
bool isModest(cmsUInt32Number bytes) {
    return bytes <= 64u << 20;
}

Context newContext() {
    static cmsPluginMemHandler memory{
        {cmsPluginMagicNumber, 2060, cmsPluginMemHandlerSig, nullptr},
        [](cmsContext, cmsUInt32Number size) { return isModest(size) ? std::malloc(size) : nullptr; },
        [](cmsContext, void* block) { std::free(block); },
        [](cmsContext, void* block, cmsUInt32Number size) {
            return isModest(size) ? std::realloc(block, size) : nullptr;
        },
        nullptr,
        nullptr,
        nullptr};
    return Context(cmsCreateContext(&memory, nullptr));
}

cmsColorSpaceSignature spaceOf(ColourKind kind) {
    if (kind == ColourKind::grey) return cmsSigGrayData;
    if (kind == ColourKind::lab) return cmsSigLabData;
    return kind == ColourKind::inks ? cmsSigCmykData : cmsSigRgbData;
}

/// An opened profile.
struct Source {
    cmsContext context;
    cmsHPROFILE profile;
};

/// sRGB of colours, both in 16 bits a channel. Whatever the profile asks for takes no more than a moment.
class Sampler {
  public:
    using Clock = std::chrono::steady_clock;

    Sampler(const Source& source, cmsUInt32Number format) {
        const Profile screen(cmsCreate_sRGBProfileTHR(source.context));
        transform_.reset(cmsCreateTransformTHR(source.context, source.profile, format, screen.get(), TYPE_RGB_16,
                                               INTENT_PERCEPTUAL, cmsFLAGS_NOCACHE | cmsFLAGS_NOOPTIMIZE));
    }

    bool isValid() const { return transform_ != nullptr; }

    /// `Count` colours of `Channels` numbers to as many of three. False when it takes too long.
    bool run(const quint16* from, quint16* to, int count) const {
        cmsDoTransform(transform_.get(), from, to, cmsUInt32Number(count));
        return Clock::now() < end_;
    }

  private:
    Transform transform_;
    Clock::time_point end_ = Clock::now() + std::chrono::seconds(5);
};

// ------------------------------------------------------------------------------------------------------ three
// transforms

using Made = std::shared_ptr<const ColourTransform>;

class SameColours : public ColourTransform {
  public:
    bool changesNothing() const override { return true; }
    void apply(QRgb*, qsizetype) const override {}
};

/// A table of the 256 greys.
class GreyColours : public ColourTransform {
  public:
    static Made of(const Source& source) {
        std::array<quint16, 256> greys;
        for (size_t i = 0; i < greys.size(); ++i) greys[i] = quint16(i * 257);
        std::array<std::array<quint16, 3>, 256> colours;
        const Sampler sampler(source, TYPE_GRAY_16);
        if (!sampler.isValid() || !sampler.run(greys.data(), colours[0].data(), int(greys.size()))) return {};
        auto made = std::make_shared<GreyColours>();
        const auto rounded = [](int value) { return (value + 128) / 257; };
        std::ranges::transform(colours, made->colours_.begin(), [&](const auto& colour) {
            return qRgb(rounded(colour[0]), rounded(colour[1]), rounded(colour[2]));
        });
        return made;
    }

    void apply(QRgb* pixels, qsizetype count) const override {
        std::transform(pixels, pixels + count, pixels, [this](QRgb pixel) { return colours_[pixel & 0xFF]; });
    }

  private:
    std::array<QRgb, 256> colours_;
};

/// Three curves and a matrix, as cameras and telephones have them. It is computed as it is written: in a grid, the
/// edge of what the screen can show would be blurred.
class MatrixColours : public ColourTransform {
  public:
    static Made of(cmsHPROFILE profile) {
        constexpr std::array curves{cmsSigRedTRCTag, cmsSigGreenTRCTag, cmsSigBlueTRCTag};
        constexpr std::array colorants{cmsSigRedColorantTag, cmsSigGreenColorantTag, cmsSigBlueColorantTag};
        auto made = std::make_shared<MatrixColours>();
        for (size_t i = 0; i < curves.size(); ++i) {
            const auto* curve = static_cast<const cmsToneCurve*>(cmsReadTag(profile, curves[i]));
            const auto* colorant = static_cast<const cmsCIEXYZ*>(cmsReadTag(profile, colorants[i]));
            if (curve == nullptr || colorant == nullptr) return {};
            made->fill(i, *curve, *colorant);
        }
        for (size_t i = 0; i < made->shades_.size(); ++i) made->shades_[i] = shade(double(i) / most);
        return made;
    }

    void apply(QRgb* pixels, qsizetype count) const override {
        for (QRgb& pixel : std::span(pixels, size_t(count))) {
            const Light& red = lights_[0][qRed(pixel)];
            const Light& green = lights_[1][qGreen(pixel)];
            const Light& blue = lights_[2][qBlue(pixel)];
            std::array<int, 4> places;
            for (size_t i = 0; i < places.size(); ++i)
                places[i] = int(std::min(std::max(red[i] + green[i] + blue[i], 0.0F), float(most)));
            pixel = 0xFF000000U | uint(shades_[size_t(places[0])]) << 16 | uint(shades_[size_t(places[1])]) << 8 |
                    shades_[size_t(places[2])];
        }
    }

  private:
    static constexpr int most = 8191;
    using Light = std::array<float, 4>;  ///< Red, green and blue of the screen, up to `most`.

    void fill(size_t channel, const cmsToneCurve& curve, const cmsCIEXYZ& colorant) {
        // From XYZ as profiles have it, under the light D50.
        constexpr double toScreen[3][3] = {{3.1338561, -1.6168667, -0.4906146},
                                           {-0.9787684, 1.9161415, 0.0334540},
                                           {0.0719453, -0.2289914, 1.4052427}};
        for (size_t value = 0; value < 256; ++value) {
            const double share = cmsEvalToneCurveFloat(&curve, float(value) / 255);
            const double light = std::isfinite(share) ? qBound(0.0, share, 1.0) : 0;
            for (size_t i = 0; i < 3; ++i) {
                const auto& row = toScreen[i];
                const double part = row[0] * colorant.X + row[1] * colorant.Y + row[2] * colorant.Z;
                // The half, for rounding, is in the reds.
                lights_[channel][value][i] = float(light * part * most + (channel == 0 ? 0.5 : 0));
            }
        }
    }

    static quint8 shade(double light) {
        const double value = light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
        return quint8(std::lround(255 * value));
    }

    std::array<std::array<Light, 256>, 3> lights_{};
    std::array<quint8, most + 1> shades_;
};

/// Tables of any kind, sampled.
template <int N>
class GridColours : public ColourTransform {
  public:
    explicit GridColours(std::vector<typename ColourGrid<N>::Node> nodes) : grid_(std::move(nodes)) {}

    static Made of(const Source& source, cmsUInt32Number format) {
        using Grid = ColourGrid<N>;
        const Sampler sampler(source, format);
        if (!sampler.isValid()) return {};
        std::vector<typename Grid::Node> nodes(static_cast<size_t>(Grid::nodeCount()));
        std::array<std::array<quint16, N>, Grid::side> row;
        std::array<std::array<quint16, 3>, Grid::side> colours;
        for (int first = 0; first < Grid::nodeCount(); first += Grid::side) {
            for (int i = 0; i < Grid::side; ++i) row[size_t(i)] = valuesAt(first + i);
            if (!sampler.run(row[0].data(), colours[0].data(), Grid::side)) return {};
            std::ranges::transform(colours, nodes.begin() + first, Grid::node);
        }
        return std::make_shared<GridColours>(std::move(nodes));
    }

    void apply(QRgb* pixels, qsizetype count) const override { grid_.turn(pixels, count); }

  private:
    static std::array<quint16, N> valuesAt(int node) {
        std::array<quint16, N> values;
        for (size_t channel = N; channel-- > 0; node /= ColourGrid<N>::side)
            values[channel] = quint16(node % ColourGrid<N>::side * 65535 / (ColourGrid<N>::side - 1));
        return values;
    }

    ColourGrid<N> grid_;
};

// ------------------------------------------------------------------------------------------------------------- making

/// Curves and a matrix, and no tables that would go before them.
bool isMatrix(cmsHPROFILE profile) {
    return cmsIsMatrixShaper(profile) && !cmsIsTag(profile, cmsSigAToB0Tag) && !cmsIsTag(profile, cmsSigDToB0Tag) &&
           cmsGetPCS(profile) == cmsSigXYZData;
}

bool hardlyChanges(const ColourTransform& transform) {
    constexpr int step = 15;
    std::vector<QRgb> colours;
    for (int red = 0; red < 256; red += step)
        for (int green = 0; green < 256; green += step)
            for (int blue = 0; blue < 256; blue += step) colours.push_back(qRgb(red, green, blue));
    std::vector<QRgb> turned = colours;
    transform.apply(turned.data(), qsizetype(turned.size()));
    return std::equal(colours.begin(), colours.end(), turned.begin(), [](QRgb a, QRgb b) {
        return std::abs(qRed(a) - qRed(b)) <= 1 && std::abs(qGreen(a) - qGreen(b)) <= 1 &&
               std::abs(qBlue(a) - qBlue(b)) <= 1;
    });
}

Made made(const QByteArray& bytes, ColourKind kind) {
    const Context context = newContext();
    const Profile profile(cmsOpenProfileFromMemTHR(context.get(), bytes.data(), cmsUInt32Number(bytes.size())));
    if (!profile || cmsGetColorSpace(profile.get()) != spaceOf(kind)) return {};
    const Source source{context.get(), profile.get()};
    if (kind == ColourKind::grey) return GreyColours::of(source);
    if (kind == ColourKind::inks) return GridColours<4>::of(source, TYPE_CMYK_16);
    if (kind == ColourKind::lab) return GridColours<3>::of(source, TYPE_Lab_16);
    const Made lights =
        isMatrix(profile.get()) ? MatrixColours::of(profile.get()) : GridColours<3>::of(source, TYPE_RGB_16);
    return lights && hardlyChanges(*lights) ? std::make_shared<SameColours>() : lights;
}

/// The transforms used last; of damaged profiles too, so that each is looked at once.
struct Kept {
    static constexpr qsizetype most = 16 << 20;
    std::mutex mutex;
    QCache<std::pair<QByteArray, int>, Made> transforms{most};
};

}  // namespace

Made ColourTransform::of(const QByteArray& profile, ColourKind kind) {
    if (profile.isEmpty() || profile.size() > longestProfile) return {};
    static Kept kept;
    const std::pair key(profile, int(kind));
    const std::lock_guard lock(kept.mutex);
    if (const Made* known = kept.transforms.object(key)) return *known;
    constexpr qsizetype bytesOfTransform = 700 << 10;
    const Made transform = made(profile, kind);
    kept.transforms.insert(key, new Made(transform), profile.size() + bytesOfTransform);
    return transform;
}
