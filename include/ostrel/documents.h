// The whole application, the current document and its history, read and commanded through Photoshop's automation.
// Each function gives its "none" value (-1, 0 or the empty string, as stated) when the library isn't connected,
// when no document is open or an object is missing, and when a call into Photoshop fails.
#pragma once

#include <string>
#include <vector>

#include "ostrel/export.h"

// A width and height pair, laid out as Windows' SIZE. A Windows host that links the DLL gets the system's own
// definition from <windows.h>, and so does code that included <windows.h> before; everywhere else this one
// stands (the library itself is built without <windows.h>, with the same name and layout).
#if defined(_WIN32) && !defined(OSTREL_BUILDING) && !defined(OSTREL_STATIC)
#include <windows.h>
#elif !defined(_WINDEF_)
struct tagSIZE {
  long cx;
  long cy;
};
#endif

// ---- History: positions count from 1, as in Photoshop's history panel ----

// The name of the current history state; empty for none.
OSTREL_API std::wstring Ostrel_GetCurrentHistoryName() noexcept;
// The position of the current history state; -1 for none.
OSTREL_API int Ostrel_GetCurrentHistoryIndex() noexcept;
// The number of history states; -1 for none (also with no document open).
OSTREL_API int Ostrel_GetHistoryCount() noexcept;
// The names of all history states in order into vecNames (emptied first, also when not connected). 1, or 0 with
// the names read before the failure.
OSTREL_API int Ostrel_GetHistoryList(std::vector<std::wstring>& vecNames) noexcept;
// The name of the history state at a position; empty for none (a position outside the history included).
OSTREL_API std::wstring Ostrel_GetHistoryName(long nPosition) noexcept;
// Makes the history state at a position the current one. 1, or 0 (a position outside the history included).
OSTREL_API int Ostrel_JumpHistory(long nPosition) noexcept;
// The name of the history brush's source state into strName (emptied first). 1; also 1 with an empty name when
// a Chinese Photoshop says the document has no source; 0 otherwise.
OSTREL_API int Ostrel_GetHistroryBrushSource(std::wstring& strName) noexcept;
// Deletes the current history state. 1, or 0 (also when not connected: nothing is deleted then).
OSTREL_API int Ostrel_DeleteCurrentHistory() noexcept;

// ---- Document ----

// The number of open documents: 0 with none, -1 when not connected or on failure.
OSTREL_API long Ostrel_GetDocumentCount() noexcept;
OSTREL_API std::wstring Ostrel_GetCurrentDocumentName() noexcept;
// The full path of the current document's file; empty for a document never saved.
OSTREL_API std::wstring Ostrel_GetCurrentFileFullName() noexcept;
// The current document's width and height in its ruler units, cut towards zero; 0, 0 for none.
OSTREL_API tagSIZE Ostrel_GetCurrentCanvasSize() noexcept;
// Closes the current document without saving and without a question. 1, or 0.
OSTREL_API int Ostrel_CloseCurrentDocument() noexcept;
// 1 if a layer of the current document is an artboard, else 0.
OSTREL_API int Ostrel_IsArtboardEnabled() noexcept;
// 1 if the current document has a selection, else 0.
OSTREL_API int OSTREL_IsSelection() noexcept;
// 1 if the current document is in quick mask mode; when Photoshop can't say, 1 if the title of its main window
// holds "快速蒙版". 0 when not connected.
OSTREL_API int Ostrel_IsQuickMaskMode() noexcept;

// ---- Application ----

OSTREL_API std::wstring Ostrel_GetVersion() noexcept;
// Photoshop's installation folder.
OSTREL_API std::wstring Ostrel_GetPath() noexcept;
// Opens a file in Photoshop. 1, or 0.
OSTREL_API int Ostrel_OpenFile(std::wstring strPath) noexcept;
// The display names of the workspaces into vecNames, which is emptied only once the list has been read. 1, or 0.
OSTREL_API int Ostrel_GetWorkspaceList(std::vector<std::wstring>& vecNames) noexcept;
// Clears the list of recent files. 1, or 0.
OSTREL_API int Ostrel_ClearRecentFiles() noexcept;
// 1 if Photoshop's preference "use legacy New Document interface" is on, else 0. Changes nothing.
OSTREL_API int Ostrel_UseLegacyNewDocument() noexcept;
