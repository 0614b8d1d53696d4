#include "cad_win32/main_window.h"

#include "cad_win32/registration.h"
#include "cad_win32/wide.h"
#include "com/base.h"

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

std::wstring LineOf(const ModelDocument& document)
{
    std::wstring line = Wide(document.Title()) + L"   (" + KindOf(document.Type());
    line += document.IsDrawing() ? L", sheets: " : L", configurations: ";
    for (size_t i = 0; i < document.Items().size(); ++i) {
        const std::u16string& item = document.Items()[i];
        line += (i > 0 ? L", " : L"") + (item == document.ActiveItem() ? L"[" + Wide(item) + L"]" : Wide(item));
    }
    return line + L")";
}

std::vector<std::wstring> LinesOf(const Application& application)
{
    if (application.Documents().empty()) {
        return {L"No document is open."};
    }
    std::vector<std::wstring> lines;
    for (const std::shared_ptr<ModelDocument>& document : application.Documents()) {
        lines.push_back(LineOf(*document));
    }
    return lines;
}

void Paint(HWND window, const Application& application)
{
    PAINTSTRUCT paint{};
    const HDC context = BeginPaint(window, &paint);
    const HGDIOBJ oldFont = SelectObject(context, GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    TEXTMETRICW metrics{};
    GetTextMetricsW(context, &metrics);
    int y = kMargin;
    for (const std::wstring& line : LinesOf(application)) {
        TextOutW(context, kMargin, y, line.c_str(), static_cast<int>(line.size()));
        y += metrics.tmHeight + metrics.tmExternalLeading + 4;
    }
    SelectObject(context, oldFont);
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
