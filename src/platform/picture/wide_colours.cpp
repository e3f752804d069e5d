#include "platform/picture/wide_colours.h"

#include <lcms2.h>

namespace {

QByteArray bytesOf(cmsHPROFILE profile) {
    cmsUInt32Number length = 0;
    cmsSaveProfileToMem(profile, nullptr, &length);
    QByteArray bytes(qsizetype(length), '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &length);
    cmsCloseProfile(profile);
    constexpr int timeAt = 24, timeLength = 12;
    return bytes.replace(timeAt, timeLength, QByteArray(timeLength, '\0'));  // one profile, whenever it is made
}

QByteArray madeProfile(const cmsCIExyYTRIPLE& primaries) {
    constexpr cmsCIExyY daylight{0.3127, 0.3290, 1};
    constexpr double screenCurve[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    cmsToneCurve* const curve = cmsBuildParametricToneCurve(nullptr, 4, screenCurve);
    cmsToneCurve* const curves[] = {curve, curve, curve};
    const cmsHPROFILE profile = cmsCreateRGBProfile(&daylight, &primaries, curves);
    cmsFreeToneCurve(curve);
    return bytesOf(profile);
}

}  // namespace

QByteArray wideProfile(unsigned primaries) {
    static const QByteArray displayP3 = madeProfile({{0.680, 0.320, 1}, {0.265, 0.690, 1}, {0.150, 0.060, 1}});
    static const QByteArray bt2020 = madeProfile({{0.708, 0.292, 1}, {0.170, 0.797, 1}, {0.131, 0.046, 1}});
    return primaries == 12 ? displayP3 : primaries == 9 ? bt2020 : QByteArray();
}

QByteArray labProfile() {
    static const QByteArray profile = bytesOf(cmsCreateLab4Profile(nullptr));
    return profile;
}
