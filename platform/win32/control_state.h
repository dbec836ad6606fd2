// The shape every custom control shares: its state is allocated when the
// window is made (WM_NCCREATE), kept in the first extra bytes of its class
// (GWLP_USERDATA belongs to whoever uses the control) and freed once the
// window is gone (WM_NCDESTROY). Messages that arrive while there is no state
// (WM_GETMINMAXINFO comes before WM_NCCREATE) take the default path.
//
//   LRESULT BarProc(HWND, BarState&, UINT, WPARAM, LPARAM);   // one switch
//   BarState* MakeBar(HWND, const CREATESTRUCTW&);            // null refuses
//   RegisterControlClass(instance, L"Bar", ControlProc<BarState, MakeBar, BarProc>, brush);
#pragma once

#include <windows.h>

namespace tw {

template <typename State>
void DeleteControlState(State* state) {
  delete state;
}

template <typename State>
State* ControlState(HWND window) {
  return window != nullptr ? reinterpret_cast<State*>(GetWindowLongPtrW(window, 0)) : nullptr;
}

// Make returns the new state (or one the creator owns, with a Free that
// leaves it alone); Handle sees every message while the state exists,
// WM_NCDESTROY last, before Free.
template <typename State, State* (*Make)(HWND, const CREATESTRUCTW&),
          LRESULT (*Handle)(HWND, State&, UINT, WPARAM, LPARAM),
          void (*Free)(State*) = DeleteControlState<State>>
LRESULT CALLBACK ControlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    State* state = Make(window, *reinterpret_cast<const CREATESTRUCTW*>(lParam));
    if (state == nullptr) return FALSE;
    SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(state));
    return DefWindowProcW(window, message, wParam, lParam);
  }
  State* state = ControlState<State>(window);
  if (state == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message != WM_NCDESTROY) return Handle(window, *state, message, wParam, lParam);
  LRESULT result = Handle(window, *state, message, wParam, lParam);
  SetWindowLongPtrW(window, 0, 0);
  Free(state);
  return result;
}

// Registers the class once per module, with room for the state pointer.
// RegisterClassW, since the device has no RegisterClassExW.
inline bool RegisterControlClass(HINSTANCE instance, const wchar_t* name, WNDPROC procedure, HBRUSH background,
                                 UINT style = 0) {
  WNDCLASSW wc = {};
  if (GetClassInfoW(instance, name, &wc)) return true;
  wc.style = style;
  wc.lpfnWndProc = procedure;
  wc.cbWndExtra = sizeof(LONG_PTR);
  wc.hInstance = instance;
  wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  wc.hbrBackground = background;
  wc.lpszClassName = name;
  return RegisterClassW(&wc) != 0;
}

}  // namespace tw
