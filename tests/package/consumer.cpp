// A program that uses the installed library the way a lesson player does: init, parse one line, check it.
#include <ostrel/OstrelCore.h>

int main() {
  Ostrel_Init();
  tagVantoScript script;
  const int result = Ostrel_ParseScript(std::wstring(L"TOOL,72"), script);
  Ostrel_UnInit();
  return result == 1 && script.strTitle == L"对象选择工具" ? 0 : 1;
}
