#include "ui/Registries.h"

namespace crashvane {

std::map<HWND, WinForm*>& FormRegistry() {
    static std::map<HWND, WinForm*> Forms;
    return Forms;
}

std::map<HWND, LinkEntry>& LinkRegistry() {
    static std::map<HWND, LinkEntry> Links;
    return Links;
}

}  // namespace crashvane
