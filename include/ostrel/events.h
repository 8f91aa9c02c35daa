// Photoshop's events: the notifiers that make Photoshop run the lesson player's script on 32 events, and the
// readers of the file PsNotifiers.ini that the script writes. The readers need no connection: they give 0 or the
// empty string when the file or its key isn't there, and most of them blank the key they report, so that an event
// is reported once. "-1" in a layer name stands for the active layer, whose name needs the connection.
#pragma once

#include <string>

#include "ostrel/export.h"
#include "ostrel/layers.h"

// Deletes the event file (connected or not), then removes every notifier of Photoshop (those of others too) and
// registers the script for the 32 events: 1 when all were added; 0 unconnected or on a failure, after which
// what was added stays added. The script's path isn't checked: Photoshop looks at it only on an event.
OSTREL_API int Ostrel_InitNotifiers(std::wstring strScriptPath) noexcept;
// Removes every notifier and disables them: 1 (also when they were disabled already); 0 unconnected or on a
// failure.
OSTREL_API int Ostrel_UninitNotifiers() noexcept;

// The event file: PsNotifiers.ini in the temporary directory if it is there, else under the local application
// data in Temp\, there or not; worked out at every call.
OSTREL_API std::wstring Ostrel_GetPsNotifiersFilePath() noexcept;
// 1 when the event file was deleted, else 0.
OSTREL_API int Ostrel_DeletePsNotifiersFile() noexcept;

// 1 once after the colours were swapped (resp. set to their defaults, resp. a smart object went into editing);
// a reader leaves the other colour reader's event alone.
OSTREL_API int Ostrel_IsColorExchange() noexcept;
OSTREL_API int Ostrel_IsDefaultBackgroundForegroundColor() noexcept;
OSTREL_API int Ostrel_IsSmartObjectEdit() noexcept;

// The layer that joined (resp. quit) a mask; the event's state stays for the next event.
OSTREL_API std::wstring Ostrel_GetJoinLayerMaskName() noexcept;
OSTREL_API std::wstring Ostrel_GetQuitLayerMaskName() noexcept;
// The layer duplicated or deleted, as written ("-1" stays "-1"); Ostrel_GetDeleteMaskLayerName reads the same
// event with "-1" standing for the active layer. Whichever runs first gets it.
OSTREL_API std::wstring Ostrel_GetDuplicateDeleteName() noexcept;
OSTREL_API std::wstring Ostrel_GetDeleteMaskLayerName() noexcept;
OSTREL_API std::wstring Ostrel_GetLinkMaskLayerName() noexcept;
// The layer selected, as written ("-1" stays "-1").
OSTREL_API std::wstring Ostrel_GetSelectEventLayerName() noexcept;
// The file that replaced a smart object's contents.
OSTREL_API std::wstring Ostrel_GetSmartReplacePath() noexcept;
// The current brush preset as the script last wrote it; not blanked.
OSTREL_API std::wstring Ostrel_GetCurrentBrushPresetName() noexcept;

// A mask was added: 1 with its kind (1, 2, 4, 8 or 16; an unknown kind leaves mask as given) and the layers it
// came from and went to (start empty when the mask was made on the active layer), else 0 with both names empty.
OSTREL_API int Ostrel_GetAddMask(std::wstring& strStart, std::wstring& strDest, EnLayerMask& nMask) noexcept;
// Something was loaded as a selection: 1 with its name, the selection mode, the panel (0 to 2) and the mask kind
// (1, 2, 4 or 8); a panel or kind out of range leaves the caller's value. Else 0 with the arguments as given.
OSTREL_API int Ostrel_GetLoadSelectionInfo(std::wstring& strName, EnSelectMode& nMode, EnLayerPanel& nPanel,
                                           EnLayerMask& nMask) noexcept;
