#include "cad_win32/main_window.h"

#include "cad_win32/registration.h"
#include "cad_win32/system_font.h"
#include "cad_win32/wide.h"
#include "com/base.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace tv::app {

namespace {

constexpr wchar_t kClassName[] = L"TorvaneMainWindow";
constexpr int kMargin = 12;

/// Posted to end the program once the call that asked for it has been answered.
constexpr UINT kMessageExit = WM_APP + 1;

const wchar_t* KindOf(DocumentType type)
{
    switch (type) {
    case DocumentType::Assembly:
        return L"assembly";
    case DocumentType::Drawing:
        return L"drawing";
    default:
        return L"part";
    }
}

/// Configurations or sheets, the active one in brackets.
std::wstring ItemsOf(const ModelDocument& document)
{
    std::wstring items;
    for (const std::u16string& item : document.Items()) {
        items += items.empty() ? L"" : L", ";
        items += item == document.ActiveItem() ? L"[" + Wide(item) + L"]" : Wide(item);
    }
    return items;
}

using Row = std::array<std::wstring, 3>;

std::vector<Row> RowsOf(const Application& application)
{
    std::vector<Row> rows = {{L"Document", L"Kind", L"Configurations or sheets"}};
    for (const std::shared_ptr<ModelDocument>& document : application.Documents()) {
        rows.push_back({Wide(document->Title()), KindOf(document->Type()), ItemsOf(*document)});
    }
    return rows;
}

int WidthOf(HDC context, const std::vector<Row>& rows, size_t column)
{
    int width = 0;
    for (const Row& row : rows) {
        SIZE size{};
        GetTextExtentPoint32W(context, row[column].c_str(), static_cast<int>(row[column].size()), &size);
        width = std::max<int>(width, size.cx);
    }
    return width;
}

void DrawCell(HDC context, const std::wstring& text, RECT place)
{
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &place,
              DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

/// A table under a line of headings; what finds no room at the right ends in dots.
void DrawDocuments(HDC context, const RECT& area, const Application& application)
{
    const std::vector<Row> rows = RowsOf(application);
    TEXTMETRICW metrics{};
    GetTextMetricsW(context, &metrics);
    const int height = metrics.tmHeight + metrics.tmExternalLeading + 4;
    const int second = kMargin + WidthOf(context, rows, 0) + 2 * kMargin;
    const int third = second + WidthOf(context, rows, 1) + 2 * kMargin;
    int y = kMargin;
    for (const Row& row : rows) {
        DrawCell(context, row[0], {kMargin, y, area.right - kMargin, y + height});
        DrawCell(context, row[1], {second, y, area.right - kMargin, y + height});
        DrawCell(context, row[2], {third, y, area.right - kMargin, y + height});
        y += height;
    }
    const RECT line{kMargin, kMargin + height - 3, area.right - kMargin, kMargin + height - 2};
    FillRect(context, &line, GetSysColorBrush(COLOR_BTNSHADOW));
}

void Paint(HWND window, const Application& application)
{
    PAINTSTRUCT paint{};
    const HDC context = BeginPaint(window, &paint);
    {
        const SystemFont font(FontUse::Message);
        const SystemFontInUse inUse(context, font);
        SetBkMode(context, TRANSPARENT);
        SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
        RECT area{};
        GetClientRect(window, &area);
        if (application.Documents().empty()) {
            DrawCell(context, L"No document is open.", {kMargin, kMargin, area.right - kMargin, area.bottom});
        } else {
            DrawDocuments(context, area, application);
        }
    }
    EndPaint(window, &paint);
}

LRESULT CALLBACK HandleMessage(HWND window, UINT message, WPARAM first, LPARAM second)
{
    auto* application = reinterpret_cast<Application*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    switch (message) {
    case WM_PAINT:
        if (application != nullptr) {
            Paint(window, *application);
            return 0;
        }
        break;
    case kMessageExit:
        DestroyWindow(window);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        break;
    }
    return DefWindowProcW(window, message, first, second);
}

} // namespace

intptr_t MakeMainWindow(Application& application, int showMode)
{
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    // A line that ends in dots has to be drawn anew when there is more room.
    windowClass.style = CS_HREDRAW;
    windowClass.lpfnWndProc = HandleMessage;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = kClassName;
    if (RegisterClassExW(&windowClass) == 0) {
        return 0;
    }
    const std::wstring title = L"Torvane " + std::to_wstring(kProductYear);
    const HWND window = CreateWindowExW(0, kClassName, title.c_str(), WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                                        900, 600, nullptr, nullptr, instance, nullptr);
    if (window == nullptr) {
        return 0;
    }
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&application));
    ShowWindow(window, showMode);
    application.onWindowShown = [window](bool shown) { ShowWindow(window, shown ? SW_SHOW : SW_HIDE); };
    application.onExit = [window] { PostMessageW(window, kMessageExit, 0, 0); };
    application.onChanged = [window] { InvalidateRect(window, nullptr, TRUE); };
    return reinterpret_cast<intptr_t>(window);
}

} // namespace tv::app
