// Owners: one type for each closing function and invalid value of the system.
//
// Declared in the order of acquisition they close in reverse. Closing keeps the thread's last error, so that the
// reason of a failure is still there after the clean-up.
#pragma once

#include <windows.h>

#include <utility>

namespace crashvane {

// Traits: `using Type`, `static Type Invalid()`, `static void Close(Type)`.
template <typename Traits>
class Owner {
  public:
    using Type = typename Traits::Type;

    Owner() = default;
    explicit Owner(Type Handle) : m_Handle(Handle) {}
    Owner(Owner&& Other) noexcept : m_Handle(Other.Release()) {}
    Owner& operator=(Owner&& Other) noexcept {
        Reset(Other.Release());
        return *this;
    }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    ~Owner() { Reset(); }

    [[nodiscard]] Type Get() const { return m_Handle; }
    explicit operator bool() const { return m_Handle != Traits::Invalid(); }

    // Closes what is held and holds the other from now on.
    void Reset(Type Handle = Traits::Invalid()) {
        const Type Old = std::exchange(m_Handle, Handle);
        if (Old != Traits::Invalid() && Old != Handle) {
            const DWORD dwLastError = GetLastError();
            Traits::Close(Old);
            SetLastError(dwLastError);
        }
    }

    // Gives the handle away unclosed.
    [[nodiscard]] Type Release() { return std::exchange(m_Handle, Traits::Invalid()); }

  private:
    Type m_Handle = Traits::Invalid();
};

struct FileHandleTraits {
    using Type = HANDLE;
    static HANDLE Invalid() { return INVALID_HANDLE_VALUE; }
    static void Close(HANDLE hFile) { CloseHandle(hFile); }
};

struct ProcessHandleTraits {
    using Type = HANDLE;
    static HANDLE Invalid() { return nullptr; }
    static void Close(HANDLE hProcess) { CloseHandle(hProcess); }
};

struct FindHandleTraits {
    using Type = HANDLE;
    static HANDLE Invalid() { return INVALID_HANDLE_VALUE; }
    static void Close(HANDLE hFind) { FindClose(hFind); }
};

struct LibraryHandleTraits {
    using Type = HMODULE;
    static HMODULE Invalid() { return nullptr; }
    static void Close(HMODULE hLibrary) { FreeLibrary(hLibrary); }
};

template <typename Gdi>
struct GdiObjectTraits {
    using Type = Gdi;
    static Gdi Invalid() { return nullptr; }
    static void Close(Gdi hObject) { DeleteObject(hObject); }
};

using FileHandle = Owner<FileHandleTraits>;        // files, snapshots: CloseHandle, INVALID_HANDLE_VALUE
using ProcessHandle = Owner<ProcessHandleTraits>;  // processes, threads: CloseHandle, null
using FindHandle = Owner<FindHandleTraits>;        // file searches
using LibraryHandle = Owner<LibraryHandleTraits>;  // loaded modules
template <typename Gdi>
using GdiObject = Owner<GdiObjectTraits<Gdi>>;  // fonts, bitmaps, brushes

// Does something when the scope ends, unless disarmed: the undo of a half-made thing.
template <typename Function>
class Undo {
  public:
    explicit Undo(Function Action) : m_Action(std::move(Action)) {}
    Undo(const Undo&) = delete;
    Undo& operator=(const Undo&) = delete;
    ~Undo() {
        if (m_bArmed) {
            m_Action();
        }
    }
    void Disarm() { m_bArmed = false; }

  private:
    Function m_Action;
    bool m_bArmed = true;
};

}  // namespace crashvane
