#include "security/object_picker.h"

#include <memory>

// Included first, because the other headers need it.
#include <objbase.h>

#include <objsel.h>
#include <ole2.h>

#include "security/selection_names.h"

namespace {

static_assert(sizeof(DSOP_SCOPE_INIT_INFO) == 56);
static_assert(offsetof(DS_SELECTION_LIST, aDsSelection) == kSelectionHeaderBytes);
static_assert(sizeof(DS_SELECTION) == kSelectionRecordBytes);
static_assert(offsetof(DS_SELECTION, pwzADsPath) == kSelectionPathOffset);

constexpr DWORD kPickerContext = 23;  // in this process or any other, on this machine or another
constexpr ULONG kPickerScopeTypes = 0x377;
constexpr ULONG kPickerScopeFlags = 0xE2;
constexpr ULONG kPickerUplevelFilter = 0xFE;
constexpr ULONG kPickerDownlevelFilter = 0x808C0075;

struct ReleaseComObject {
  void operator()(IUnknown* object) const { object->Release(); }
};
template <typename T>
using ComObject = std::unique_ptr<T, ReleaseComObject>;

ComObject<IDsObjectPicker> CreatePicker() {
  void* created = nullptr;
  if (FAILED(CoCreateInstance(CLSID_DsObjectPicker, nullptr, kPickerContext, IID_IUnknown, &created)))
    return nullptr;
  const ComObject<IUnknown> object(static_cast<IUnknown*>(created));
  void* picker = nullptr;
  if (FAILED(OleRun(object.get())) || FAILED(object->QueryInterface(IID_IDsObjectPicker, &picker)))
    return nullptr;
  return ComObject<IDsObjectPicker>(static_cast<IDsObjectPicker*>(picker));
}

bool Initialize(IDsObjectPicker& picker) {
  DSOP_SCOPE_INIT_INFO scope = {};
  scope.cbSize = sizeof scope;
  scope.flType = kPickerScopeTypes;
  scope.flScope = kPickerScopeFlags;
  scope.FilterFlags.Uplevel.flBothModes = kPickerUplevelFilter;
  scope.FilterFlags.Uplevel.flMixedModeOnly = kPickerUplevelFilter;
  scope.FilterFlags.Uplevel.flNativeModeOnly = kPickerUplevelFilter;
  scope.FilterFlags.flDownlevel = kPickerDownlevelFilter;
  DSOP_INIT_INFO info = {};
  info.cbSize = sizeof info;
  info.cDsScopeInfos = 1;
  info.aDsScopeInfos = &scope;
  return SUCCEEDED(picker.Initialize(&info));
}

// Returns the chosen names, in order.
std::vector<WString> ReadSelection(IDataObject& data) {
  FORMATETC format = {};
  format.cfFormat = static_cast<CLIPFORMAT>(RegisterClipboardFormatW(L"CFSTR_DSOP_DS_SELECTION_LIST"));
  format.dwAspect = DVASPECT_CONTENT;
  format.lindex = -1;
  format.tymed = TYMED_HGLOBAL;
  STGMEDIUM medium = {};
  if (FAILED(data.GetData(&format, &medium))) return {};
  std::vector<WString> names;
  if (medium.tymed == TYMED_HGLOBAL) {
    if (const void* const memory = GlobalLock(medium.hGlobal)) {
      names = NamesOfSelectionList({static_cast<const std::byte*>(memory), GlobalSize(medium.hGlobal)});
      GlobalUnlock(medium.hGlobal);
    }
  }
  ReleaseStgMedium(&medium);
  return names;
}

}  // namespace

std::optional<WString> PickAccount(HWND owner) {
  const ComObject<IDsObjectPicker> picker = CreatePicker();
  if (!picker || !Initialize(*picker)) return std::nullopt;
  IDataObject* chosen = nullptr;
  if (picker->InvokeDialog(owner, &chosen) != S_OK || !chosen) return std::nullopt;
  const ComObject<IDataObject> data(chosen);
  return AccountOfSelection(ReadSelection(*data));
}
