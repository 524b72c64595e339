// PNG files through the imaging component that every Windows has.
#include <windows.h>

#include <objbase.h>
#include <wincodec.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>
#include <string>

#include "png/png_file.h"

namespace ink::tool {
namespace {

// Fails with the words for what was tried.
void check(HRESULT result, const char *what) {
    if (FAILED(result)) throw std::runtime_error(what);
}

// An object of the component's, released with its owner.
template <class Interface>
class Com {
  public:
    Com() = default;
    ~Com() {
        if (object_ != nullptr) object_->Release();
    }
    Com(const Com &) = delete;
    Com &operator=(const Com &) = delete;
    Interface *operator->() const { return object_; }
    Interface *get() const { return object_; }
    Interface **to() { return &object_; }

  private:
    Interface *object_ = nullptr;
};

IWICImagingFactory &factory() {
    static IWICImagingFactory &made = []() -> IWICImagingFactory & {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        void *object = nullptr;
        check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                               &object),
              "Windows has no imaging component");
        return *static_cast<IWICImagingFactory *>(object);
    }();
    return made;
}

std::vector<std::uint8_t> contents(IStream *stream) {
    STATSTG status{};
    check(stream->Stat(&status, STATFLAG_NONAME), "there is no memory");
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(status.cbSize.QuadPart));
    ULONG read = 0;
    check(stream->Seek({}, STREAM_SEEK_SET, nullptr), "there is no memory");
    check(stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read), "there is no memory");
    return bytes;
}

// The file of pixels in a format of the component's, with a palette where the format has one.
std::vector<std::uint8_t> encode(int width, int height, std::span<const std::uint8_t> pixels,
                                 std::size_t pixel_bytes, const WICPixelFormatGUID &format,
                                 IWICPalette *palette) {
    const std::size_t stride = static_cast<std::size_t>(width) * pixel_bytes;
    if (width < 1 || height < 1 || pixels.size() < stride * static_cast<std::size_t>(height))
        throw std::runtime_error("the picture has fewer pixels than its size says");
    constexpr const char *kWhat = "the picture cannot be written";
    Com<IStream> stream;
    Com<IWICBitmapEncoder> encoder;
    Com<IWICBitmapFrameEncode> frame;
    check(CreateStreamOnHGlobal(nullptr, TRUE, stream.to()), kWhat);
    check(factory().CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.to()), kWhat);
    check(encoder->Initialize(stream.get(), WICBitmapEncoderNoCache), kWhat);
    check(encoder->CreateNewFrame(frame.to(), nullptr), kWhat);
    check(frame->Initialize(nullptr), kWhat);
    check(frame->SetSize(static_cast<UINT>(width), static_cast<UINT>(height)), kWhat);
    WICPixelFormatGUID taken = format;
    check(frame->SetPixelFormat(&taken), kWhat);
    if (palette != nullptr) check(frame->SetPalette(palette), kWhat);
    check(frame->WritePixels(static_cast<UINT>(height), static_cast<UINT>(stride),
                             static_cast<UINT>(pixels.size()), const_cast<BYTE *>(pixels.data())),
          kWhat);
    check(frame->Commit(), kWhat);
    check(encoder->Commit(), kWhat);
    return contents(stream.get());
}

std::vector<std::uint8_t> encode_indices(int width, int height, std::span<const std::uint8_t> indices,
                                         std::span<const std::uint8_t, 768> palette,
                                         bool transparent = false) {
    std::array<WICColor, 256> colors;
    for (std::size_t i = 0; i < colors.size(); ++i)
        colors[i] = 0xFF000000U | static_cast<WICColor>(palette[3 * i] << 16 | palette[3 * i + 1] << 8 |
                                                        palette[3 * i + 2]);
    if (transparent) colors[0] &= 0xFFFFFFU;
    Com<IWICPalette> made;
    check(factory().CreatePalette(made.to()), "there is no memory");
    check(made->InitializeCustom(colors.data(), static_cast<UINT>(colors.size())), "there is no memory");
    return encode(width, height, indices, 1, GUID_WICPixelFormat8bppIndexed, made.get());
}

void save(const std::filesystem::path &name, const std::vector<std::uint8_t> &file) {
    std::ofstream to(name, std::ios::binary);
    to.write(reinterpret_cast<const char *>(file.data()), static_cast<std::streamsize>(file.size()));
    if (!to.flush()) throw std::runtime_error("it cannot be written");
}

// Adds the file's name to what went wrong with it.
template <class Action>
auto named(const std::filesystem::path &name, Action action) try {
    return action();
} catch (const std::runtime_error &error) {
    throw std::runtime_error(name.string() + ": " + error.what());
}

// The file's one picture.
void open_frame(std::span<const std::uint8_t> file, Com<IStream> &stream, Com<IWICBitmapFrameDecode> &frame) {
    constexpr const char *kWhat = "is no PNG file, or a damaged one";
    ULONG written = 0;
    check(CreateStreamOnHGlobal(nullptr, TRUE, stream.to()), "there is no memory");
    check(stream->Write(file.data(), static_cast<ULONG>(file.size()), &written), "there is no memory");
    check(stream->Seek({}, STREAM_SEEK_SET, nullptr), "there is no memory");
    Com<IWICBitmapDecoder> decoder;
    check(factory().CreateDecoder(GUID_ContainerFormatPng, nullptr, decoder.to()), kWhat);
    check(decoder->Initialize(stream.get(), WICDecodeMetadataCacheOnDemand), kWhat);
    check(decoder->GetFrame(0, frame.to()), kWhat);
}

// Its pixels in that format, pixel_bytes each, row by row.
std::vector<std::uint8_t> pixels_as(IWICBitmapSource *source, const WICPixelFormatGUID &format,
                                    std::size_t pixel_bytes) {
    UINT width = 0, height = 0;
    check(source->GetSize(&width, &height), "is damaged");
    Com<IWICFormatConverter> converter;
    check(factory().CreateFormatConverter(converter.to()), "there is no memory");
    check(converter->Initialize(source, format, WICBitmapDitherTypeNone, nullptr, 0,
                                WICBitmapPaletteTypeCustom),
          "is of an unknown kind");
    std::vector<std::uint8_t> pixels(width * pixel_bytes * height);
    check(converter->CopyPixels(nullptr, static_cast<UINT>(width * pixel_bytes),
                                static_cast<UINT>(pixels.size()), pixels.data()),
          "is damaged");
    return pixels;
}

std::vector<std::uint8_t> load(const std::filesystem::path &name) {
    std::ifstream from(name, std::ios::binary);
    if (!from) throw std::runtime_error("it cannot be opened");
    return {std::istreambuf_iterator<char>(from), {}};
}

}  // namespace

void write_png(const std::filesystem::path &name, int width, int height,
               std::span<const std::uint8_t> indices, std::span<const std::uint8_t, 768> palette) {
    named(name, [&] { save(name, encode_indices(width, height, indices, palette)); });
}

void write_png_rgb(const std::filesystem::path &name, int width, int height,
                   std::span<const std::uint8_t> rgb) {
    std::vector<std::uint8_t> bgr(rgb.begin(), rgb.end());
    for (std::size_t i = 0; i + 2 < bgr.size(); i += 3) std::swap(bgr[i], bgr[i + 2]);
    named(name, [&] { save(name, encode(width, height, bgr, 3, GUID_WICPixelFormat24bppBGR, nullptr)); });
}

RgbPicture read_png_rgb(const std::filesystem::path &name) {
    return named(name, [&] {
        Com<IStream> stream;
        Com<IWICBitmapFrameDecode> frame;
        open_frame(load(name), stream, frame);
        UINT width = 0, height = 0;
        check(frame->GetSize(&width, &height), "is damaged");
        // By way of the form that every other can be turned into.
        const std::vector<std::uint8_t> bgra = pixels_as(frame.get(), GUID_WICPixelFormat32bppBGRA, 4);
        RgbPicture picture{static_cast<int>(width), static_cast<int>(height), {}};
        for (std::size_t i = 0; i < bgra.size(); i += 4)
            picture.rgb.insert(picture.rgb.end(), {bgra[i + 2], bgra[i + 1], bgra[i]});
        return picture;
    });
}

std::vector<std::uint8_t> encode_png(int width, int height, std::span<const std::uint8_t> indices,
                                     std::span<const std::uint8_t, 768> palette, bool transparent) {
    return encode_indices(width, height, indices, palette, transparent);
}

bool is_png(std::span<const std::uint8_t> file) {
    constexpr std::array<std::uint8_t, 8> kMark{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    return file.size() >= kMark.size() && std::equal(kMark.begin(), kMark.end(), file.begin());
}

PngPicture decode_png(std::span<const std::uint8_t> file) {
    constexpr std::uint64_t kMostPixels = 1 << 26;
    if (!is_png(file)) throw std::runtime_error("is no PNG file");
    Com<IStream> stream;
    Com<IWICBitmapFrameDecode> frame;
    open_frame(file, stream, frame);
    UINT width = 0, height = 0;
    check(frame->GetSize(&width, &height), "is damaged");
    if (std::uint64_t{width} * height > kMostPixels) throw std::runtime_error("the picture is too large");
    PngPicture picture;
    picture.width = static_cast<int>(width);
    picture.height = static_cast<int>(height);
    WICPixelFormatGUID format{};
    check(frame->GetPixelFormat(&format), "is damaged");
    const std::pair<const GUID *, unsigned> indexed[] = {{&GUID_WICPixelFormat1bppIndexed, 1},
                                                         {&GUID_WICPixelFormat2bppIndexed, 2},
                                                         {&GUID_WICPixelFormat4bppIndexed, 4},
                                                         {&GUID_WICPixelFormat8bppIndexed, 8}};
    for (const auto &[guid, bits] : indexed) {
        if (!IsEqualGUID(format, *guid)) continue;
        const UINT stride = (width * bits + 7) / 8;
        std::vector<std::uint8_t> rows(std::size_t{stride} * height);
        check(frame->CopyPixels(nullptr, stride, static_cast<UINT>(rows.size()), rows.data()), "is damaged");
        for (UINT y = 0; y < height; ++y)
            for (UINT x = 0; x < width; ++x) {
                const unsigned bit = x * bits;
                const std::uint8_t byte = rows[std::size_t{y} * stride + bit / 8];
                picture.indices.push_back(
                    static_cast<std::uint8_t>(byte >> (8 - bits - bit % 8) & ((1U << bits) - 1)));
            }
        Com<IWICPalette> palette;
        std::array<WICColor, 256> colors{};
        UINT count = 0;
        check(factory().CreatePalette(palette.to()), "there is no memory");
        check(frame->CopyPalette(palette.get()), "is damaged");
        check(palette->GetColors(static_cast<UINT>(colors.size()), colors.data(), &count), "is damaged");
        for (UINT i = 0; i < count; ++i)
            picture.palette.push_back(
                {static_cast<std::uint8_t>(colors[i] >> 16), static_cast<std::uint8_t>(colors[i] >> 8),
                 static_cast<std::uint8_t>(colors[i]), static_cast<std::uint8_t>(colors[i] >> 24)});
        return picture;
    }
    const std::vector<std::uint8_t> pixels = pixels_as(frame.get(), GUID_WICPixelFormat32bppBGRA, 4);
    for (std::size_t i = 0; i + 3 < pixels.size(); i += 4)
        picture.colours.push_back({pixels[i + 2], pixels[i + 1], pixels[i], pixels[i + 3]});
    return picture;
}

}  // namespace ink::tool
