// The bodies of the document, history and application exports. Each runs connected, under the connection's lock
// (the export boundary sees to both); a failed call throws to the boundary, which gives the export's default.
#pragma once

#include <string>
#include <vector>

#include "ostrel/documents.h"

namespace ostrel {

std::wstring CurrentHistoryName();
int CurrentHistoryIndex();
int HistoryCount();
int ReadHistoryList(std::vector<std::wstring>& names);
std::wstring HistoryName(long position);
int JumpHistory(long position);
int ReadHistoryBrushSource(std::wstring& name);
int DeleteCurrentHistory();

long DocumentCount();
std::wstring CurrentDocumentName();
std::wstring CurrentFileFullName();
tagSIZE CurrentCanvasSize();
int CloseCurrentDocument();
int IsArtboardEnabled();
int HasSelection();
int IsQuickMaskMode();

std::wstring ApplicationVersion();
std::wstring ApplicationPath();
int OpenFile(const std::wstring& path);
int ReadWorkspaceList(std::vector<std::wstring>& names);
int ClearRecentFiles();
int UsesLegacyNewDocument();

// What a list reader gives when it must not run: its vector emptied, and the result.
int EmptiedAnd(std::vector<std::wstring>& names, int result) noexcept;
int EmptiedAnd(std::wstring& name, int result) noexcept;

}  // namespace ostrel
