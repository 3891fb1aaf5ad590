#include "host/controls/list_view.h"

#include <algorithm>
#include <utility>

#include "host/controls/container_window.h"
#include "host/controls/shell_images.h"
#include "platform/screen_scale.h"

namespace QxHost {
namespace {

constexpr UINT_PTR kListSubclass = 1;

// WM_DPICHANGED_AFTERPARENT, since Windows 10: the window has moved to a monitor with another resolution.
constexpr UINT kScaleChanged = 0x02E3;

// The bits of the cell style that distinguish a marked cell from a plain one.
constexpr u32 kMarkedCell = 0x300000;

// Up to this number of selected rows, deselecting them one by one takes no noticeable time.
constexpr LRESULT kMaxTrackedRows = 300;

// Returns the shell's list of small images. The system owns it.
HIMAGELIST SmallShellImages() {
  constexpr UINT kFlags = SHGFI_USEFILEATTRIBUTES | SHGFI_SYSICONINDEX | SHGFI_SMALLICON;
  SHFILEINFOW information{};
  return reinterpret_cast<HIMAGELIST>(
      SHGetFileInfoW(L"x", FILE_ATTRIBUTE_NORMAL, &information, sizeof(information), kFlags));
}

// Returns the number of the subclass of the parent, which may have several lists.
UINT_PTR NumberAtParent(u32 list) { return list + 100; }

}  // namespace

ListView::ListView(Controls& controls, HWND parent)
    : ListControl(controls), parent_(parent), scale_(PixelsOfAnInch(parent)) {
  const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&classes);
  constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS | LVS_REPORT | LVS_OWNERDATA |
                           LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS | LVS_NOSORTHEADER;
  window_ = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, nullptr, kStyle, 0, 0, 0, 0, parent, nullptr,
                            GetModuleHandleW(nullptr), nullptr);
  if (!window_) return;
  const auto data = reinterpret_cast<DWORD_PTR>(this);
  SetWindowSubclass(window_, OnListMessage, kListSubclass, data);
  SetWindowSubclass(parent_, OnParentMessage, NumberAtParent(GetId()), data);
  constexpr DWORD kExtendedStyle = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, kExtendedStyle, kExtendedStyle);
  Send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(SmallShellImages()));
}

ListView::~ListView() {
  if (window_) {
    StoreWidths();
    Send(LVM_SETITEMCOUNT, 0);
    SetStateImages(nullptr);
    RemoveWindowSubclass(window_, OnListMessage, kListSubclass);
    RemoveWindowSubclass(parent_, OnParentMessage, NumberAtParent(GetId()));
  }
  if (markedFont_) DeleteObject(markedFont_);
}

u32 ListView::GetImageSet() { return kShellImages; }

void ListView::Refresh() {
  if (!window_) return;
  ShowRows();
  InvalidateRect(window_, nullptr, FALSE);
}

// A list view derives the height of its rows from its images, so this sets a state image, which no row shows,
// of the required height.
void ListView::SetRowHeight(u32 height) {
  const auto pixels = static_cast<int>(height);
  SetStateImages(pixels > GetSystemMetrics(SM_CYSMICON) ? ImageList_Create(1, pixels, ILC_COLOR, 1, 1)
                                                        : nullptr);
}

// The list view destroys none of its images, as it shares the shell's.
void ListView::SetStateImages(HIMAGELIST images) {
  const auto before =
      reinterpret_cast<HIMAGELIST>(Send(LVM_SETIMAGELIST, LVSIL_STATE, reinterpret_cast<LPARAM>(images)));
  if (before) ImageList_Destroy(before);
}

bool ListView::FilterMessage(tagMSG* message) {
  if (!message || !window_ || message->hwnd != window_ || message->message != WM_KEYDOWN) return false;
  const bool isControl = GetKeyState(VK_CONTROL) < 0;
  const bool isAlone = GetKeyState(VK_SHIFT) >= 0 && GetKeyState(VK_MENU) >= 0;
  if (message->wParam != 'A' || !isControl || !isAlone) return false;
  SetStateOfAll(LVIS_SELECTED, LVIS_SELECTED);
  return true;
}

// Disables drawing meanwhile: Wine invalidates each row separately, which takes many times as long.
void ListView::SetStateOfAll(UINT state, UINT mask) {
  Send(WM_SETREDRAW, FALSE);
  SetState(-1, state, mask);
  Send(WM_SETREDRAW, TRUE);
  InvalidateRect(window_, nullptr, FALSE);
}

// Wine's list view notifies its parent of each row that is deselected, which takes many seconds for a million
// rows.
void ListView::BeforeInput(UINT message, WPARAM wParam, LPARAM lParam) {
  if (Send(LVM_GETSELECTEDCOUNT) <= kMaxTrackedRows) return;
  const bool isReplaced = message == WM_KEYDOWN       ? IsReplacedByKey(wParam)
                          : message == WM_LBUTTONDOWN ? IsReplacedByClick(wParam, RowAt(lParam))
                                                      : IsReplacedByRightClick(wParam, RowAt(lParam));
  if (isReplaced) DeselectAll();
}

int ListView::RowAt(LPARAM point) const {
  LVHITTESTINFO hit{};
  hit.pt = {static_cast<short>(LOWORD(point)), static_cast<short>(HIWORD(point))};
  return static_cast<int>(Send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
}

// Returns whether a key replaces the selection: it moves the focus to another row, which it does not at the
// end of the list, and Control is not held.
bool ListView::IsReplacedByKey(WPARAM key) {
  if (GetKeyState(VK_CONTROL) < 0) return false;
  const std::size_t rows = CountRows();
  const std::size_t focused = Focused();
  if (key == VK_UP || key == VK_PRIOR || key == VK_HOME) return focused > 0;
  return (key == VK_DOWN || key == VK_NEXT || key == VK_END) && (focused >= rows || focused + 1 < rows);
}

bool ListView::IsReplacedByClick(WPARAM keys, int row) {
  return (keys & MK_CONTROL) == 0 && (row >= 0 || (keys & MK_SHIFT) == 0);
}

// A right click on a selected row opens the menu of all selected rows and keeps the selection.
bool ListView::IsReplacedByRightClick(WPARAM keys, int row) const {
  if ((keys & (MK_CONTROL | MK_SHIFT)) != 0) return false;
  return row < 0 || Send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) == 0;
}

// Removes all rows and adds them again: removed rows are deselected without a message for each. Then restores
// the scroll position, the focus and the selection mark.
void ListView::DeselectAll() {
  const LRESULT count = Send(LVM_GETITEMCOUNT);
  const LRESULT top = Send(LVM_GETTOPINDEX);
  const LRESULT focused = Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
  const LRESULT mark = Send(LVM_GETSELECTIONMARK);
  const int left = GetScrollPos(window_, SB_HORZ);
  RECT area{LVIR_BOUNDS, 0, 0, 0};
  Send(LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&area));
  Send(WM_SETREDRAW, FALSE);
  Send(LVM_SETITEMCOUNT, 0, LVSICF_NOSCROLL);
  Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(count), LVSICF_NOSCROLL);
  Send(LVM_SCROLL, static_cast<WPARAM>(left - GetScrollPos(window_, SB_HORZ)),
       (top - Send(LVM_GETTOPINDEX)) * (area.bottom - area.top));
  if (focused >= 0) SetState(static_cast<int>(focused), LVIS_FOCUSED, LVIS_FOCUSED);
  Send(LVM_SETSELECTIONMARK, 0, mark);
  Send(WM_SETREDRAW, TRUE);
  InvalidateRect(window_, nullptr, FALSE);
  PostSelectionChanged();
}

void ListView::OnClear() {
  isCleared_ = true;
  // On the list's own thread the list view is updated at once, on any other thread later.
  if (window_ && GetWindowThreadProcessId(window_, nullptr) == GetCurrentThreadId()) {
    ShowRows();
  } else {
    PostShowRows();
  }
}

void ListView::PostShowRows() {
  if (!isShowPosted_.exchange(true)) PostMessageW(parent_, kShowRows, reinterpret_cast<WPARAM>(window_), 0);
}

void ListView::ShowRows() {
  isShowPosted_ = false;
  if (isCleared_.exchange(false)) {
    if (Send(LVM_GETSELECTEDCOUNT) != 0) SetStateOfAll(0, LVIS_SELECTED);
    const LRESULT focused = Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
    if (focused >= 0) SetState(static_cast<int>(focused), 0, LVIS_FOCUSED);
    Send(LVM_SETITEMCOUNT, 0);
  }
  const auto count = static_cast<LRESULT>(CountRows());
  if (count != Send(LVM_GETITEMCOUNT)) Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(count), LVSICF_NOSCROLL);
}

void ListView::OnColumn(const Column& column) {
  LVCOLUMNW made{};
  made.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
  made.cx = PixelsOfWidth(column.width);
  made.pszText = const_cast<WCHAR*>(column.heading.c_str());
  made.iSubItem = static_cast<int>(columns_.size()) - 1;
  Send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(made.iSubItem), reinterpret_cast<LPARAM>(&made));
}

RowRanges ListView::Selected() {
  RowRanges selected;
  const std::size_t count = SelectedCount();
  const std::size_t rows = CountRows();
  if (count == rows) return {{0, rows}};
  LRESULT row = -1;
  for (std::size_t found = 0; found < count; ++found) {
    row = Send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED);
    if (row < 0) break;
    selected.Append({static_cast<std::size_t>(row), static_cast<std::size_t>(row) + 1});
  }
  return selected;
}

std::size_t ListView::SelectedCount() {
  if (!window_) return 0;
  ShowRows();
  return static_cast<std::size_t>(Send(LVM_GETSELECTEDCOUNT));
}

std::size_t ListView::Focused() {
  const LRESULT row = Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
  return row < 0 ? CountRows() : static_cast<std::size_t>(row);
}

// A list view does not accept ranges: each row needs a message. So this uses the way with the fewest
// messages: change only the rows that differ, deselect all and select again, or select all and deselect the
// others.
void ListView::OnMove(const RowRanges& selectedBefore, const RowRanges& selected, std::size_t focused) {
  const RowRanges all{{0, CountRows()}};
  const RowRanges added = selected.Without(selectedBefore);
  const RowRanges removed = selectedBefore.Without(selected);
  const RowRanges others = all.Without(selected);
  const std::size_t differing = added.Count() + removed.Count();
  isMoving_ = true;
  Send(WM_SETREDRAW, FALSE);
  if (differing <= selected.Count() && differing <= others.Count()) {
    SetState(removed, 0);
    SetState(added, LVIS_SELECTED);
  } else if (selected.Count() <= others.Count()) {
    SetState(-1, 0, LVIS_SELECTED);
    SetState(selected, LVIS_SELECTED);
  } else {
    SetState(-1, LVIS_SELECTED, LVIS_SELECTED);
    SetState(others, 0);
  }
  if (focused < CountRows()) {
    SetState(static_cast<int>(focused), LVIS_FOCUSED, LVIS_FOCUSED);
    Send(LVM_ENSUREVISIBLE, focused, FALSE);
  }
  Send(WM_SETREDRAW, TRUE);
  isMoving_ = false;
  InvalidateRect(window_, nullptr, FALSE);
}

void ListView::SetState(const RowRanges& rows, UINT state) {
  for (const RowRange& range : rows.All()) {
    for (std::size_t row = range.begin; row < range.end; ++row) {
      SetState(static_cast<int>(row), state, LVIS_SELECTED);
    }
  }
}

void ListView::SetState(int row, UINT state, UINT mask) {
  LVITEMW item{};
  item.state = state;
  item.stateMask = mask;
  Send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void ListView::PostSelectionChanged() {
  if (isMoving_ || isSelectionPosted_) return;
  isSelectionPosted_ = PostMessageW(parent_, kReportSelection, reinterpret_cast<WPARAM>(window_), 0) != FALSE;
}

LRESULT CALLBACK ListView::OnParentMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR id, DWORD_PTR data) {
  ListView& list = *reinterpret_cast<ListView*>(data);
  const bool isOwn = list.window_ && reinterpret_cast<HWND>(wParam) == list.window_;
  switch (message) {
    case WM_NOTIFY: {
      NMHDR& header = *reinterpret_cast<NMHDR*>(lParam);
      LRESULT result = 0;
      if (list.window_ && header.hwndFrom == list.window_ && list.OnNotify(header, result)) return result;
      break;
    }
    case WM_CONTEXTMENU:
      if (!isOwn) break;
      list.OnContextMenu(lParam);
      return 0;
    case kShowRows:
      if (!isOwn) break;
      list.ShowRows();
      return 0;
    case kReportSelection:
      if (!isOwn) break;
      list.isSelectionPosted_ = false;
      list.SendSelectionChanged();
      return 0;
    case kScaleChanged:
      list.SetScale(PixelsOfAnInch(window));
      break;
    case WM_NCDESTROY:
      RemoveWindowSubclass(window, OnParentMessage, id);
      break;
    default:
      break;
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

LRESULT CALLBACK ListView::OnListMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR data) {
  ListView& list = *reinterpret_cast<ListView*>(data);
  if (message == WM_NOTIFY) {
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (header.code == HDN_DIVIDERDBLCLICKW || header.code == HDN_DIVIDERDBLCLICKA) {
      list.FitColumn(reinterpret_cast<const NMHEADERW*>(lParam)->iItem);
      return 0;
    }
  } else if (message == WM_CONTEXTMENU && reinterpret_cast<HWND>(wParam) != window) {
    return 0;  // a notification of the header
  } else if (message == WM_KEYDOWN || message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN) {
    list.BeforeInput(message, wParam, lParam);
  } else if (message == WM_SETFONT && list.markedFont_) {
    DeleteObject(std::exchange(list.markedFont_, nullptr));
  } else if (message == WM_DESTROY) {
    list.StoreWidths();
  } else if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(window, OnListMessage, id);
    RemoveWindowSubclass(list.parent_, OnParentMessage, NumberAtParent(list.GetId()));
    list.window_ = nullptr;
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

bool ListView::OnNotify(NMHDR& header, LRESULT& result) {
  switch (header.code) {
    case LVN_GETDISPINFOW:
      FillCell(reinterpret_cast<NMLVDISPINFOW&>(header).item);
      return true;
    case LVN_ITEMCHANGING:
      return true;  // allow the drag
    case LVN_ITEMCHANGED: {
      const NMLISTVIEW& change = reinterpret_cast<const NMLISTVIEW&>(header);
      if (((change.uOldState ^ change.uNewState) & LVIS_SELECTED) != 0) PostSelectionChanged();
      return true;
    }
    case LVN_ODSTATECHANGED:
      PostSelectionChanged();
      return true;
    case LVN_ODFINDITEMW:
      result = FindByText(reinterpret_cast<const NMLVFINDITEMW&>(header));
      return true;
    case NM_CUSTOMDRAW:
      result = OnCustomDraw(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
      return true;
    default:
      return false;
  }
}

void ListView::FillCell(LVITEMW& cell) {
  if (cell.iItem < 0 || cell.iSubItem < 0) return;
  const auto row = static_cast<std::size_t>(cell.iItem);
  const auto column = static_cast<std::size_t>(cell.iSubItem);
  if ((cell.mask & LVIF_TEXT) != 0 && column < columns_.size()) {
    cell.pszText = const_cast<WCHAR*>(CellText(row, columns_[column].number));
  }
  if ((cell.mask & LVIF_IMAGE) != 0) {
    s64 image = kNoImage;
    AskRow(row,
           [&](Velmora::SDK::IMLRowCallBack& provider, void* item) { image = provider.GetRowImage(item); });
    cell.iImage = image < 0 ? I_IMAGENONE : static_cast<int>(image);
  }
}

LRESULT ListView::OnCustomDraw(NMLVCUSTOMDRAW& draw) {
  switch (draw.nmcd.dwDrawStage) {
    case CDDS_PREPAINT:
      return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT:
      return CDRF_NOTIFYSUBITEMDRAW;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
      break;
    default:
      return CDRF_DODEFAULT;
  }
  if (draw.iSubItem < 0 || static_cast<std::size_t>(draw.iSubItem) >= columns_.size()) return CDRF_DODEFAULT;
  const u32 column = columns_[static_cast<std::size_t>(draw.iSubItem)].number;
  s32 text = Velmora::SDK::kNoTextColor;
  u32 back = CLR_NONE;
  u32 style = 0;
  AskRow(draw.nmcd.dwItemSpec, [&](Velmora::SDK::IMLRowCallBack& provider, void* item) {
    text = provider.GetTextColor(item, column);
    back = provider.GetBackColor(item, column);
    style = provider.GetCellStyle(item, column);
  });
  // Colours and font apply to the following cells too, so they must be set for every cell.
  draw.clrText =
      text == Velmora::SDK::kNoTextColor ? GetSysColor(COLOR_WINDOWTEXT) : static_cast<COLORREF>(text);
  draw.clrTextBk = back == CLR_NONE ? GetSysColor(COLOR_WINDOW) : back;
  const bool isMarked = (style & kMarkedCell) == kMarkedCell;
  const auto plain = reinterpret_cast<HFONT>(Send(WM_GETFONT));
  SelectObject(draw.nmcd.hdc, isMarked ? MarkedFont() : plain);
  return CDRF_NEWFONT;
}

HFONT ListView::MarkedFont() {
  if (markedFont_) return markedFont_;
  const auto plain = reinterpret_cast<HFONT>(Send(WM_GETFONT));
  LOGFONTW font{};
  if (GetObjectW(plain, sizeof(font), &font) == 0) return plain;
  font.lfWeight = FW_BOLD;
  markedFont_ = CreateFontIndirectW(&font);
  return markedFont_ ? markedFont_ : plain;
}

// Returns the first row from the start index on, continuing from the top, whose first cell begins with the
// searched text; -1 if no row matches.
int ListView::FindByText(const NMLVFINDITEMW& search) {
  const std::size_t count = CountRows();
  if ((search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || !search.lvfi.psz || columns_.empty())
    return -1;
  const WStringView wanted(search.lvfi.psz);
  for (std::size_t step = 0; step < count; ++step) {
    const std::size_t row = (static_cast<std::size_t>(std::max(search.iStart, 0)) + step) % count;
    const WStringView text = CellText(row, columns_.front().number);
    if (text.size() < wanted.size()) continue;
    const int size = static_cast<int>(wanted.size());
    if (CompareStringOrdinal(text.data(), size, wanted.data(), size, TRUE) == CSTR_EQUAL)
      return static_cast<int>(row);
  }
  return -1;
}

// If the menu was requested by the keyboard, `place` is -1, and the menu opens at the focused row, or at the
// corner of the list.
void ListView::OnContextMenu(LPARAM place) {
  POINT point{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
  if (place == -1) {
    RECT area{LVIR_LABEL, 0, 0, 0};
    const std::size_t focused = Focused();
    const bool hasRow = focused < CountRows() && Send(LVM_ENSUREVISIBLE, focused, FALSE) &&
                        Send(LVM_GETITEMRECT, focused, reinterpret_cast<LPARAM>(&area));
    point = hasRow ? POINT{area.left, area.bottom} : POINT{0, 0};
    ClientToScreen(window_, &point);
  }
  SendContextMenu(point.x, point.y);
}

void ListView::FitColumn(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= columns_.size()) return;
  const Column& column = columns_[static_cast<std::size_t>(index)];
  const int margin = PixelsOfWidth(12);
  const int image = index == 0 ? GetSystemMetrics(SM_CXSMICON) + margin : 0;
  const auto widthOf = [this](const WCHAR* text) {
    return static_cast<int>(Send(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text)));
  };
  int width = widthOf(column.heading.c_str());
  const auto first = static_cast<std::size_t>(Send(LVM_GETTOPINDEX));
  const auto page = static_cast<std::size_t>(Send(LVM_GETCOUNTPERPAGE));
  for (std::size_t row = first; row <= first + page && row < CountRows(); ++row) {
    width = std::max(width, widthOf(CellText(row, column.number)));
  }
  Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(index), width + margin + image);
}

void ListView::StoreWidths() {
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    const auto pixels = static_cast<int>(Send(LVM_GETCOLUMNWIDTH, index));
    Column& column = columns_[index];
    if (pixels <= 0 || pixels == PixelsOfWidth(column.width)) continue;
    column.width = static_cast<u32>(MulDiv(pixels, USER_DEFAULT_SCREEN_DPI, scale_));
    controls_.StoreWidth(column.number, column.width);
  }
}

void ListView::SetScale(int pixelsOfAnInch) {
  if (!window_ || pixelsOfAnInch == scale_) return;
  StoreWidths();
  scale_ = pixelsOfAnInch;
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    Send(LVM_SETCOLUMNWIDTH, index, PixelsOfWidth(columns_[index].width));
  }
}

}  // namespace QxHost
