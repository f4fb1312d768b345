#include "sampleshoot/CameraIfd.h"
#include "sampleshoot/ExifTags.h"
#include "sampleshoot/Orientation.h"
#include "sampleshoot/PhotoEncoders.h"

namespace morvak::samples {

QByteArray tiffPhoto(const PhotoOptions& options)
{
    Ifd ifd = cameraIfd("Morvak", "Sample Studio T", options);
    ifd.addLongs(tag::newSubfileType, {0});
    addRgbPicture(ifd, storedFor(options.upright, options.orientation));
    ifd.addIfds(tag::exifIfd, {exifIfd(options)});
    return encodeTiff({ifd});
}

}  // namespace morvak::samples
