#include "ui/LinkControls.h"

namespace crashvane {
namespace {

LRESULT CALLBACK LinkProcedure(HWND hControl, UINT uMessage, WPARAM wParam, LPARAM lParam) {
    const auto itLink = LinkRegistry().find(hControl);
    if (itLink == LinkRegistry().end()) {
        return DefWindowProcW(hControl, uMessage, wParam, lParam);
    }
    // A copy: the dialog, and its links with it, may end while the handler shows a box.
    const LinkEntry Link = itLink->second;
    if (uMessage == WM_LBUTTONDOWN) {
        Link.pfnClick(*Link.pForm, GetParent(hControl));
        return 0;
    }
    return CallWindowProcW(Link.pfnPrevious, hControl, uMessage, wParam, lParam);
}

}  // namespace

int MakeLink(HWND hControl, WinForm* pForm, LinkHandler pfnClick) {
    LinkEntry Link = {pForm, pfnClick, nullptr};
    Link.pfnPrevious = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(hControl, GWLP_WNDPROC));
    if (Link.pfnPrevious == nullptr) {
        return 0;
    }
    LinkRegistry()[hControl] = Link;
    SetWindowLongPtrW(hControl, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(LinkProcedure));
    return 1;
}

void RestoreLinks(const WinForm* pForm) {
    std::map<HWND, LinkEntry>& Links = LinkRegistry();
    for (auto itLink = Links.begin(); itLink != Links.end();) {
        if (itLink->second.pForm == pForm) {
            SetWindowLongPtrW(itLink->first, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(itLink->second.pfnPrevious));
            itLink = Links.erase(itLink);
        } else {
            ++itLink;
        }
    }
}

}  // namespace crashvane
