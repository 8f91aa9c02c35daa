// The tool table: Photoshop's tools by number, by Photoshop's tool id and by Chinese name.
#pragma once

#include <string>

#include "ostrel/export.h"

// A tool's number as lesson scripts store it: -1 (no tool) and 0 to 72. The numbers are the identity;
// 69 is the owner of the free transform options and has no row of its own.
enum EnToolIndex : int {};

OSTREL_API EnToolIndex Ostrel_ToolNameCNToIndex(std::wstring strNameCN) noexcept;
OSTREL_API EnToolIndex Ostrel_ToolNameENToIndex(std::wstring strNameEN) noexcept;
OSTREL_API std::wstring Ostrel_ToolIndexToNameCN(EnToolIndex nIndex) noexcept;
OSTREL_API std::wstring Ostrel_ToolIndexToNameEN(EnToolIndex nIndex) noexcept;
OSTREL_API std::wstring Ostrel_ToolNameENToNameCN(std::wstring strNameEN) noexcept;
OSTREL_API std::wstring Ostrel_ToolNameCNToNameEN(std::wstring strNameCN) noexcept;
