// The imaging component of Windows, for the files of that system.
#pragma once

#include <windows.h>

#include <objbase.h>
#include <wincodec.h>

#include <stdexcept>

namespace ink::tool {

// Fails with the words for what was tried.
inline void check(HRESULT result, const char *what) {
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

inline IWICImagingFactory &imaging() {
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

}  // namespace ink::tool
