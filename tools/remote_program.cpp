#include "tools/remote_program.h"

#include <algorithm>
#include <vector>

namespace tw::tools {

namespace {

bool LoadWide(HMODULE module, UINT id, std::wstring& out) {
  wchar_t buffer[256];
  int length = LoadStringW(module, id, buffer, 256);
  if (length <= 0) return false;
  out.assign(buffer, length);
  return true;
}

struct WindowQuery {
  DWORD processId;
  std::vector<HWND> windows;
};

BOOL CALLBACK CollectVisible(HWND window, LPARAM data) {
  auto* query = reinterpret_cast<WindowQuery*>(data);
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  if (owner == query->processId && IsWindowVisible(window)) query->windows.push_back(window);
  return TRUE;
}

std::vector<HWND> VisibleTopLevel(DWORD processId) {
  WindowQuery query{processId, {}};
  EnumWindows(CollectVisible, reinterpret_cast<LPARAM>(&query));
  return query.windows;
}

bool HasClass(HWND window, const wchar_t* name) {
  wchar_t buffer[64];
  return GetClassNameW(window, buffer, 64) > 0 && lstrcmpiW(buffer, name) == 0;
}

bool Ended(const RemoteProgram& program, DWORD timeoutMs) {
  return WaitForSingleObject(program.process.hProcess, timeoutMs) == WAIT_OBJECT_0;
}

DWORD Release(RemoteProgram& program) {
  WaitForSingleObject(program.process.hProcess, 10000);
  DWORD code = 0;
  GetExitCodeProcess(program.process.hProcess, &code);
  CloseHandle(program.process.hThread);
  CloseHandle(program.process.hProcess);
  program = RemoteProgram{};
  return code;
}

}  // namespace

bool ReadWindowNames(const std::wstring& exe, std::wstring& className, std::wstring& title) {
  HMODULE module = LoadLibraryExW(exe.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  if (!module) return false;
  bool found = LoadWide(module, 3, className) && LoadWide(module, 1, title);
  FreeLibrary(module);
  return found;
}

bool StartProgram(const std::wstring& exe, const std::wstring& arguments, RemoteProgram& program) {
  size_t slash = exe.find_last_of(L"\\/");
  std::wstring folder = slash == std::wstring::npos ? L"" : exe.substr(0, slash);
  std::wstring commandLine = L"\"" + exe + L"\"";
  if (!arguments.empty()) commandLine += L" " + arguments;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  program = RemoteProgram{};
  return CreateProcessW(exe.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        folder.empty() ? nullptr : folder.c_str(), &startup, &program.process) != 0;
}

HWND FindProgramWindow(DWORD processId, const wchar_t* className, const wchar_t* title) {
  HWND window = nullptr;
  while ((window = FindWindowExW(nullptr, window, className, title)) != nullptr) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == processId && IsWindowVisible(window)) return window;
  }
  return nullptr;
}

bool WaitForMainWindow(RemoteProgram& program, const wchar_t* className, const wchar_t* title, DWORD timeoutMs) {
  DWORD start = GetTickCount();
  while (GetTickCount() - start < timeoutMs) {
    program.main = FindProgramWindow(program.process.dwProcessId, className, title);
    if (program.main) return true;
    if (Ended(program, 0)) return false;
    Sleep(20);
  }
  return false;
}

bool WaitIdle(HWND window, DWORD timeoutMs) {
  DWORD_PTR result = 0;
  return SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, timeoutMs, &result) != 0;
}

int DismissMessageBoxes(DWORD processId) {
  int answered = 0;
  for (HWND window : VisibleTopLevel(processId)) {
    if (!HasClass(window, L"#32770")) continue;
    PostMessageW(window, WM_COMMAND, IDOK, 0);
    ++answered;
  }
  return answered;
}

DWORD CloseProgram(RemoteProgram& program, WORD cancelCommand, DWORD timeoutMs) {
  DWORD start = GetTickCount();
  if (program.main) PostMessageW(program.main, WM_COMMAND, MAKEWPARAM(cancelCommand, 0), 0);
  bool answered = false;
  while (!Ended(program, 20) && GetTickCount() - start < timeoutMs) {
    if (answered) continue;
    for (HWND window : VisibleTopLevel(program.process.dwProcessId)) {
      if (!HasClass(window, L"#32770")) continue;
      PostMessageW(window, WM_COMMAND, IDYES, 0);
      answered = true;
    }
  }
  if (!Ended(program, 0)) TerminateProcess(program.process.hProcess, 1);
  return Release(program);
}

namespace {

struct SelectorQuery {
  HWND main;
  int pages;
  HWND found;
};

bool IsPageSelector(HWND combo, int pages) {
  if (SendMessageW(combo, CB_GETCOUNT, 0, 0) != pages) return false;
  for (int i = 0; i < pages; ++i)
    if (SendMessageW(combo, CB_GETITEMDATA, i, 0) != i) return false;
  return true;
}

BOOL CALLBACK FindSelectorChild(HWND child, LPARAM data) {
  auto* query = reinterpret_cast<SelectorQuery*>(data);
  wchar_t name[32];
  if (GetParent(child) != query->main || GetClassNameW(child, name, 32) == 0 || lstrcmpiW(name, L"ComboBox") != 0)
    return TRUE;
  if (!IsPageSelector(child, query->pages)) return TRUE;
  query->found = child;
  return FALSE;
}

}  // namespace

HWND FindPageSelector(HWND main, int pages) {
  SelectorQuery query{main, pages, nullptr};
  EnumChildWindows(main, FindSelectorChild, reinterpret_cast<LPARAM>(&query));
  return query.found;
}

void SelectPage(HWND main, HWND selector, int page) {
  SendMessageW(selector, CB_SETCURSEL, page, 0);
  SendMessageW(main, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(selector), CBN_SELCHANGE), reinterpret_cast<LPARAM>(selector));
}

DWORD KillProgram(RemoteProgram& program) {
  TerminateProcess(program.process.hProcess, 1);
  return Release(program);
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  size_t n = values.size();
  return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

}  // namespace tw::tools
