#pragma once

#include <windows.h>

#include <memory>

// An object that gets the messages of a window. Several objects can be attached to one window: the last one
// attached sees a message first and passes it on with Default. They may leave in any order, also while a
// message is on its way. No exception leaves a window's procedure (see CModalScope).
//
// A window and its objects belong to one thread. The object owns no window: whoever made the window destroys
// it, a child is destroyed with its parent.
class CWnd
{
public:
    CWnd() = default;
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    // Gets the messages of `window` from now on. Nothing happens, and the answer is false, when it is no
    // window of the calling thread or the object is attached already.
    bool Attach(HWND window);

    // The same for the control `identifier` of a dialog.
    bool AttachDlgItem(int identifier, HWND dialog);

    // Leaves the window, which keeps its other objects. Does nothing when not attached.
    void Detach() noexcept;

    // The window, null when there is none or it was destroyed.
    [[nodiscard]] HWND GetHandle() const noexcept { return handle; }

    // The name of the object's class. Settings of a window are kept under it; a plain "CWnd" has none.
    [[nodiscard]] virtual const char* GetRuntimeClassName() const { return "CWnd"; }

protected:
    // Every message arrives here. Overrides handle theirs and pass the others on to the base class. The
    // object is no longer attached after WM_NCDESTROY, and may be deleted in it after passing it on.
    virtual LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

    // Passes a message on to the object attached before this one, in the end to the window's own procedure. 0
    // when this object is not attached.
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);

private:
    class CMessageChain;

    HWND handle = nullptr;
    std::shared_ptr<CMessageChain> chain;
};

// Registers a window class of the module for controls of dialog templates and other windows that a CWnd is
// attached to: by itself it does nothing but the system's default. Registering twice does no harm. Windows of
// a class without a cursor show what was set last.
void RegisterPlainWindowClass(const wchar_t* name, UINT style = CS_DBLCLKS, HBRUSH background = nullptr,
                              HCURSOR cursor = LoadCursor(nullptr, IDC_ARROW));

// What CreatePlainWindow needs to know.
struct PlainWindowSettings
{
    const wchar_t* className = nullptr;
    const wchar_t* title = L"";
    DWORD style = WS_OVERLAPPEDWINDOW;
    DWORD extendedStyle = 0;
    int left = CW_USEDEFAULT;
    int top = CW_USEDEFAULT;
    int width = CW_USEDEFAULT;
    int height = CW_USEDEFAULT;
    HWND parent = nullptr;
    int identifier = 0; // of a child window
};

// Makes a window of a class of the module or of the system; null when the system refuses.
[[nodiscard]] HWND CreatePlainWindow(const PlainWindowSettings& settings);
