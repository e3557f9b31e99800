#include "framework/CWnd.h"

#include "framework/CModalScope.h"
#include "framework/CModuleState.h"
#include "framework/ModuleResources.h"

#include <algorithm>
#include <cwchar>
#include <utility>
#include <vector>

// The objects attached to one window. It lives from the first Attach until the window is destroyed, or until
// nobody is attached and the window has its first procedure back. That cannot be given back while a stranger
// has put his own procedure above this one.
class CWnd::CMessageChain : public std::enable_shared_from_this<CMessageChain>
{
public:
    static std::shared_ptr<CMessageChain> Find(HWND window) noexcept;
    static std::shared_ptr<CMessageChain> FindOrInstall(HWND window);

    void Add(CWnd* object) { objects.push_back(object); }
    void Remove(const CWnd* object) noexcept;
    LRESULT PassBelow(const CWnd* object, UINT message, WPARAM wParam, LPARAM lParam);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static const wchar_t* PropertyName() noexcept;

    LRESULT Pass(std::size_t height, UINT message, WPARAM wParam, LPARAM lParam);
    void Uninstall() noexcept;
    void ForgetWindow() noexcept;

    HWND window = nullptr;
    WNDPROC previous = nullptr;
    std::vector<CWnd*> objects;          // the last one sees a message first
    std::shared_ptr<CMessageChain> self; // while the window's procedure refers to it
};

// Every copy of the module in a process has a name of its own.
const wchar_t* CWnd::CMessageChain::PropertyName() noexcept
{
    static const struct Name
    {
        Name() { std::swprintf(text, std::size(text), L"CWnd.%p", static_cast<const void*>(this)); }
        wchar_t text[32];
    } name;
    return name.text;
}

std::shared_ptr<CWnd::CMessageChain> CWnd::CMessageChain::Find(HWND window) noexcept
{
    auto* const chain = static_cast<CMessageChain*>(GetPropW(window, PropertyName()));
    return chain != nullptr ? chain->self : nullptr;
}

std::shared_ptr<CWnd::CMessageChain> CWnd::CMessageChain::FindOrInstall(HWND window)
{
    if (auto found = Find(window))
    {
        return found;
    }
    auto chain = std::make_shared<CMessageChain>();
    chain->window = window;
    if (SetPropW(window, PropertyName(), chain.get()) == FALSE)
    {
        return nullptr;
    }
    chain->self = chain;
    chain->previous = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
    return chain;
}

void CWnd::CMessageChain::Remove(const CWnd* object) noexcept
{
    std::erase(objects, object);
    const auto current = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
    if (objects.empty() && current == &Procedure)
    {
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
        Uninstall();
    }
}

void CWnd::CMessageChain::Uninstall() noexcept
{
    RemovePropW(window, PropertyName());
    self.reset();
}

void CWnd::CMessageChain::ForgetWindow() noexcept
{
    for (CWnd* object : objects)
    {
        object->handle = nullptr;
        object->chain.reset();
    }
    objects.clear();
    Uninstall();
}

// To the topmost of the lowest `height` objects, or to the window's own procedure.
LRESULT CWnd::CMessageChain::Pass(std::size_t height, UINT message, WPARAM wParam, LPARAM lParam)
{
    return height > 0 ? objects[height - 1]->HandleMessage(message, wParam, lParam)
                      : CallWindowProcW(previous, window, message, wParam, lParam);
}

LRESULT CWnd::CMessageChain::PassBelow(const CWnd* object, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto place = std::find(objects.begin(), objects.end(), object);
    return Pass(static_cast<std::size_t>(place - objects.begin()), message, wParam, lParam);
}

LRESULT CALLBACK CWnd::CMessageChain::Procedure(HWND window, UINT message, WPARAM wParam,
                                                LPARAM lParam) noexcept
{
    const std::shared_ptr<CMessageChain> chain = Find(window);
    if (chain == nullptr)
    {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    const CModuleStateScope ownState;
    const LRESULT answer = CallKeepingExceptions(
        LRESULT{0}, [&] { return chain->Pass(chain->objects.size(), message, wParam, lParam); });
    if (message == WM_NCDESTROY)
    {
        chain->ForgetWindow();
    }
    return answer;
}

CWnd::~CWnd()
{
    Detach();
}

bool CWnd::Attach(HWND window)
{
    if (handle != nullptr || GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId())
    {
        return false;
    }
    auto found = CMessageChain::FindOrInstall(window);
    if (found == nullptr)
    {
        return false;
    }
    found->Add(this);
    chain = std::move(found);
    handle = window;
    return true;
}

bool CWnd::AttachDlgItem(int identifier, HWND dialog)
{
    return Attach(GetDlgItem(dialog, identifier));
}

void CWnd::Detach() noexcept
{
    if (const auto left = std::move(chain))
    {
        handle = nullptr;
        left->Remove(this);
    }
}

LRESULT CWnd::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return Default(message, wParam, lParam);
}

LRESULT CWnd::Default(UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto current = chain;
    return current != nullptr ? current->PassBelow(this, message, wParam, lParam) : 0;
}

void RegisterPlainWindowClass(const wchar_t* name, UINT style, HBRUSH background, HCURSOR cursor)
{
    WNDCLASSEXW settings{};
    settings.cbSize = sizeof settings;
    settings.style = style;
    settings.lpfnWndProc = DefWindowProcW;
    settings.hInstance = GetModuleInstance();
    settings.hCursor = cursor;
    settings.hbrBackground = background;
    settings.lpszClassName = name;
    RegisterClassExW(&settings);
}

HWND CreatePlainWindow(const PlainWindowSettings& settings)
{
    return CreateWindowExW(settings.extendedStyle, settings.className, settings.title, settings.style,
                           settings.left, settings.top, settings.width, settings.height, settings.parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(settings.identifier)),
                           GetModuleInstance(), nullptr);
}
