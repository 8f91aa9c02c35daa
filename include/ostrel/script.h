// Script lines: the split of a recorded step line, the dispatcher and the row parsers.
#pragma once

#include <string>
#include <vector>

#include "ostrel/export.h"

// The result of every parse: the step's short title and the sentence for the learner.
struct tagVantoScript {
  std::wstring strTitle;
  std::wstring strDetail;
};

// Splits a line at every comma into items, empty ones included; an empty line gives no items.
OSTREL_API void Ostrel_ParseItem(std::wstring strLine, std::vector<std::wstring>& vecItems) noexcept;

// 1 if the item at nIndex exists and equals strText exactly, else 0.
OSTREL_API int Ostrel_IsItem(std::vector<std::wstring> vecItems, int nIndex, std::wstring strText) noexcept;

// The dispatcher: picks the row by item 0 and fills the record. 1 if the line was understood, else 0.
OSTREL_API int Ostrel_ParseScript(std::wstring strLine, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScript(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;

// One row parser each, run directly: they look at items from index 1 on, never at item 0.
OSTREL_API int Ostrel_ParseScriptFile(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptTopMenu(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptTool(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptToolFeatures(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptLayer(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptLayerStyle(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptAdjustLayer(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptCanvas(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptCanvasMenu(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptCanvasSubmit(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptWokrZone(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptDoc(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptShortcutKey(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptColor(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptHistory(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
OSTREL_API int Ostrel_ParseScriptQuickMask(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept;
