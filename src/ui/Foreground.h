// Windows brought in front of others: the dialog over a full-screen game, the repair tool over the dialog.
#pragma once

#include <windows.h>

namespace crashvane {

// Moves the first top-level window of a process to the top of the z-order. One look, without waiting: a process that
// has no window yet is left alone.
void RaiseWindowOf(DWORD uProcessId);

// Puts the dialog above everything, topmost games included, and asks for the keyboard.
void ComeToFront(HWND hDialog);

// Lets the dialog behave like any window again, behind the one that the user turned to.
void StepBack(HWND hDialog);

}  // namespace crashvane
