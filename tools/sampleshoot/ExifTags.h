#pragma once

#include <QtGlobal>

/// Tags of TIFF 6.0, Exif 2.3 (CIPA DC-008) and DNG that the samples carry.
namespace morvak::samples::tag {
inline constexpr quint16 newSubfileType = 0x00fe;
inline constexpr quint16 imageWidth = 0x0100;
inline constexpr quint16 imageLength = 0x0101;
inline constexpr quint16 bitsPerSample = 0x0102;
inline constexpr quint16 compression = 0x0103;
inline constexpr quint16 photometric = 0x0106;
inline constexpr quint16 make = 0x010f;
inline constexpr quint16 model = 0x0110;
inline constexpr quint16 stripOffsets = 0x0111;
inline constexpr quint16 orientation = 0x0112;
inline constexpr quint16 samplesPerPixel = 0x0115;
inline constexpr quint16 rowsPerStrip = 0x0116;
inline constexpr quint16 stripByteCounts = 0x0117;
inline constexpr quint16 xResolution = 0x011a;
inline constexpr quint16 yResolution = 0x011b;
inline constexpr quint16 planarConfiguration = 0x011c;
inline constexpr quint16 resolutionUnit = 0x0128;
inline constexpr quint16 dateTime = 0x0132;
inline constexpr quint16 yCbCrPositioning = 0x0213;
inline constexpr quint16 subIfds = 0x014a;
inline constexpr quint16 jpegOffset = 0x0201;
inline constexpr quint16 jpegLength = 0x0202;
inline constexpr quint16 cfaRepeatPatternDim = 0x828d;
inline constexpr quint16 cfaPattern = 0x828e;
inline constexpr quint16 exifIfd = 0x8769;
inline constexpr quint16 exposureTime = 0x829a;
inline constexpr quint16 fNumber = 0x829d;
inline constexpr quint16 photographicSensitivity = 0x8827;
inline constexpr quint16 exifVersion = 0x9000;
inline constexpr quint16 dateTimeOriginal = 0x9003;
inline constexpr quint16 dateTimeDigitized = 0x9004;
inline constexpr quint16 componentsConfiguration = 0x9101;
inline constexpr quint16 focalLength = 0x920a;
inline constexpr quint16 makerNote = 0x927c;
inline constexpr quint16 flashpixVersion = 0xa000;
inline constexpr quint16 colorSpace = 0xa001;
inline constexpr quint16 pixelXDimension = 0xa002;
inline constexpr quint16 pixelYDimension = 0xa003;
inline constexpr quint16 dngVersion = 0xc612;
inline constexpr quint16 dngBackwardVersion = 0xc613;
inline constexpr quint16 uniqueCameraModel = 0xc614;
inline constexpr quint16 colorMatrix1 = 0xc621;
inline constexpr quint16 asShotNeutral = 0xc628;
inline constexpr quint16 calibrationIlluminant1 = 0xc65a;
}  // namespace morvak::samples::tag
