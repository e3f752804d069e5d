#include "profile_samples.h"

#include <lcms2.h>

#include <vector>

namespace {

constexpr cmsCIExyY daylight{0.3127, 0.3290, 1};

QByteArray bytesOf(cmsHPROFILE profile) {
    cmsUInt32Number length = 0;
    cmsSaveProfileToMem(profile, nullptr, &length);
    QByteArray bytes(qsizetype(length), '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &length);
    cmsCloseProfile(profile);
    return bytes.replace(24, 12, QByteArray(12, '\0'));  // the time of its making
}

cmsToneCurve* screenCurve() {
    const double parameters[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    return cmsBuildParametricToneCurve(nullptr, 4, parameters);
}

QByteArray matrixProfile(const cmsCIExyYTRIPLE& primaries, cmsToneCurve* curve, double version) {
    cmsToneCurve* const curves[] = {curve, curve, curve};
    const cmsHPROFILE profile = cmsCreateRGBProfile(&daylight, &primaries, curves);
    cmsSetProfileVersion(profile, version);
    cmsFreeToneCurve(curve);
    return bytesOf(profile);
}

/// A profile with a table from `channels` numbers to Lab, as `colour` fills it.
cmsHPROFILE withTable(cmsColorSpaceSignature space, int channels, cmsSAMPLER16 colour) {
    const cmsHPROFILE profile = cmsCreateProfilePlaceholder(nullptr);
    cmsSetProfileVersion(profile, 4.3);
    cmsSetDeviceClass(profile, cmsSigOutputClass);
    cmsSetColorSpace(profile, space);
    cmsSetPCS(profile, cmsSigLabData);
    cmsPipeline* const pipeline = cmsPipelineAlloc(nullptr, cmsUInt32Number(channels), 3);
    cmsStage* const table = cmsStageAllocCLut16bit(nullptr, 9, cmsUInt32Number(channels), 3, nullptr);
    cmsStageSampleCLut16bit(table, colour, nullptr, 0);
    cmsPipelineInsertStage(pipeline, cmsAT_END, cmsStageAllocToneCurves(nullptr, cmsUInt32Number(channels), nullptr));
    cmsPipelineInsertStage(pipeline, cmsAT_END, table);
    cmsPipelineInsertStage(pipeline, cmsAT_END, cmsStageAllocToneCurves(nullptr, 3, nullptr));
    cmsWriteTag(profile, cmsSigAToB0Tag, pipeline);
    cmsPipelineFree(pipeline);
    return profile;
}

/// Lab of lights that are given from 0 to 1 and meant for the screen.
void putLab(double red, double green, double blue, cmsUInt16Number* lab) {
    const double lights[] = {red, green, blue};
    static const cmsHTRANSFORM toLab = [] {
        const cmsHPROFILE screen = cmsCreate_sRGBProfile(), labs = cmsCreateLab4Profile(nullptr);
        const cmsHTRANSFORM made =
            cmsCreateTransform(screen, TYPE_RGB_DBL, labs, TYPE_Lab_16, INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOCACHE);
        cmsCloseProfile(screen);
        cmsCloseProfile(labs);
        return made;
    }();
    cmsDoTransform(toLab, lights, lab, 1);
}

}  // namespace

QByteArray displayP3Profile(double version) {
    return matrixProfile({{0.680, 0.320, 1}, {0.265, 0.690, 1}, {0.150, 0.060, 1}}, screenCurve(), version);
}

QByteArray adobeRgbProfile() {
    return matrixProfile({{0.64, 0.33, 1}, {0.21, 0.71, 1}, {0.15, 0.06, 1}}, cmsBuildGamma(nullptr, 563.0 / 256), 2.1);
}

QByteArray screenProfile() {
    return matrixProfile({{0.64, 0.33, 1}, {0.30, 0.60, 1}, {0.15, 0.06, 1}}, screenCurve(), 2.1);
}

QByteArray greyProfile(double gamma) {
    cmsToneCurve* const curve = cmsBuildGamma(nullptr, gamma);
    const cmsHPROFILE profile = cmsCreateGrayProfile(cmsD50_xyY(), curve);
    cmsFreeToneCurve(curve);
    return bytesOf(profile);
}

QByteArray tableProfile() {
    return bytesOf(withTable(cmsSigRgbData, 3, [](const cmsUInt16Number* in, cmsUInt16Number* out, void*) {
        putLab(in[1] / 65535.0, in[2] / 65535.0, in[0] / 65535.0, out);
        return 1;
    }));
}

QByteArray inkProfile(qsizetype padding) {
    const cmsHPROFILE profile =
        withTable(cmsSigCmykData, 4, [](const cmsUInt16Number* in, cmsUInt16Number* out, void*) {
            const auto light = [&](int ink) { return (1 - 0.9 * in[ink] / 65535.0) * (1 - 0.95 * in[3] / 65535.0); };
            putLab(light(0), light(1), light(2), out);
            return 1;
        });
    if (padding > 0) {
        cmsMLU* const text = cmsMLUalloc(nullptr, 1);
        cmsMLUsetASCII(text, "en", "US", QByteArray(padding / 2, 'x').constData());
        cmsWriteTag(profile, cmsSigCopyrightTag, text);
        cmsMLUfree(text);
    }
    return bytesOf(profile);
}

QList<QRgb> byLibrary(const QByteArray& profile, ColourKind kind, QList<QRgb> pixels) {
    const cmsHPROFILE from = cmsOpenProfileFromMem(profile.data(), cmsUInt32Number(profile.size()));
    const cmsHPROFILE screen = cmsCreate_sRGBProfile();
    const size_t channels = kind == ColourKind::grey ? 1 : kind == ColourKind::lights ? 3 : 4;
    const cmsUInt32Number formats[] = {0, TYPE_GRAY_DBL, 0, TYPE_RGB_DBL, TYPE_CMYK_DBL};
    const cmsHTRANSFORM transform = cmsCreateTransform(from, formats[channels], screen, TYPE_RGB_DBL, INTENT_PERCEPTUAL,
                                                       cmsFLAGS_NOOPTIMIZE | cmsFLAGS_NOCACHE);
    const double most = kind == ColourKind::inks ? 100 : 1;
    for (QRgb& pixel : pixels) {
        std::vector<double> values;
        for (const int value : {qRed(pixel), qGreen(pixel), qBlue(pixel), qAlpha(pixel)})
            values.push_back(most * value / 255);
        double lights[3];
        cmsDoTransform(transform, values.data(), lights, 1);
        const auto byte = [&](int i) { return qRound(255 * qBound(0.0, lights[i], 1.0)); };
        pixel = qRgb(byte(0), byte(1), byte(2));
    }
    cmsDeleteTransform(transform);
    cmsCloseProfile(screen);
    cmsCloseProfile(from);
    return pixels;
}

QByteArray jpegWithSegments(const QByteArray& jpeg, const QByteArray& profile, qsizetype segmentBytes, bool backwards) {
    const qsizetype count = (profile.size() + segmentBytes - 1) / segmentBytes;
    QByteArray all;
    for (qsizetype i = 0; i < count; ++i) {
        const QByteArray part = profile.mid(i * segmentBytes, segmentBytes);
        const qsizetype length = part.size() + 16;
        const QByteArray segment = QByteArray("\xFF\xE2") + char(length >> 8) + char(length & 0xFF) +
                                   QByteArray("ICC_PROFILE\0", 12) + char(i + 1) + char(count) + part;
        all = backwards ? segment + all : all + segment;
    }
    return QByteArray(jpeg).insert(2, all);
}
