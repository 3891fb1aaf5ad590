#include "host/system/window_picture.h"

#include <objidl.h>

#include <algorithm>

// <gdiplus.h> uses these two names without a namespace.
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

namespace QxHost {
namespace {

// The class id of the PNG encoder of Windows.
constexpr CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

class GdiplusScope {
 public:
  GdiplusScope() {
    Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token_, &input, nullptr);
  }
  GdiplusScope(const GdiplusScope&) = delete;
  GdiplusScope& operator=(const GdiplusScope&) = delete;
  ~GdiplusScope() { Gdiplus::GdiplusShutdown(token_); }

 private:
  ULONG_PTR token_ = 0;
};

HBITMAP CopyFromWindow(HWND window) {
  RECT area = {};
  if (!GetWindowRect(window, &area)) return nullptr;
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  const HDC source = GetWindowDC(window);
  const HDC memory = CreateCompatibleDC(source);
  const HBITMAP bitmap = CreateCompatibleBitmap(source, width, height);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, source, 0, 0, SRCCOPY);
  SelectObject(memory, before);
  DeleteDC(memory);
  ReleaseDC(window, source);
  return bitmap;
}

}  // namespace

bool SaveWindowPicture(HWND window, const WString& path) {
  RedrawWindow(window, nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW | RDW_ERASENOW);
  GdiFlush();
  const HBITMAP bitmap = CopyFromWindow(window);
  if (!bitmap) return false;
  bool saved = false;
  {
    const GdiplusScope gdiplus;
    Gdiplus::Bitmap picture(bitmap, nullptr);
    saved = picture.Save(path.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
  }
  DeleteObject(bitmap);
  return saved;
}

}  // namespace QxHost
