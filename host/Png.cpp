#include "Png.h"

#include <png.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "UserError.h"

namespace tessel8::host {

namespace {

std::vector<uint8_t> pngBytes(const PendingFile& file, const Picture& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = picture.width;
    image.height = picture.height;
    image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::vector<uint8_t> bytes(size);
    if (png_image_write_to_memory(&image, bytes.data(), &size, 0, picture.rgb.data(), 0, nullptr) ==
        0) {
        throw UserError("cannot write " + file.name() + ": " + image.message);
    }
    bytes.resize(size);
    return bytes;
}

}  // namespace

void writePng(PendingFile& file, const Picture& picture) {
    const std::vector<uint8_t> bytes = pngBytes(file, picture);
    for (size_t done = 0; done < bytes.size();) {
        const ssize_t written = write(file.descriptor(), bytes.data() + done, bytes.size() - done);
        if (written > 0) {
            done += size_t(written);
        } else if (written == 0 || errno != EINTR) {
            throw UserError("cannot write " + file.name() + ": " +
                            std::strerror(written == 0 ? ENOSPC : errno));
        }
    }
    file.commit();
}

}  // namespace tessel8::host
