#include "standin/user/eyes/Png.h"

#include <png.h>

#include <filesystem>
#include <stdexcept>
#include <vector>

namespace standin::user
{
void WritePng(const ScreenPicture& picture, const std::string& file)
{
    std::vector<png_byte> bytes;
    bytes.reserve(picture.pixels.size() * 3);
    for (const std::uint32_t pixel : picture.pixels)
        for (const int shift : {16, 8, 0})
            bytes.push_back(static_cast<png_byte>((pixel >> shift) & 0xff));

    const auto folder = std::filesystem::path(file).parent_path();
    std::error_code error;
    if (!folder.empty())
        (void)std::filesystem::create_directories(folder, error);

    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGB;
    if (png_image_write_to_file(&image, file.c_str(), 0, bytes.data(), 0, nullptr) == 0)
        throw std::runtime_error(file + " cannot be written: " + image.message);
}
} // namespace standin::user
