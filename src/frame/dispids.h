// The dispatch ids of Photoshop's automation objects, by object. Nearly all are four ASCII characters read
// big-endian, given beside each number.
#pragma once

#include <cstdint>

namespace ostrel {

// The value type of a descriptor key or list item, by the number that getType gives. 1 to 8 are the types the
// library reads; 9 to 13 (reference, class, alias, large integer) are what the simulated Photoshop assumes.
enum class DescriptorValueType : int32_t {
  kInteger = 1,
  kDouble = 2,
  kUnitDouble = 3,
  kString = 4,
  kBoolean = 5,
  kList = 6,
  kObject = 7,
  kEnumerated = 8,
  kReference = 9,
  kClass = 10,
  kAlias = 11,
  kLargeInteger = 13,
};

}  // namespace ostrel

namespace ostrel::dispid {

// Application: called on the application object only.
namespace app {
inline constexpr int32_t kStringIDToTypeID = 0x41723031;  // Ar01
inline constexpr int32_t kTypeIDToStringID = 0x41723032;  // Ar02
inline constexpr int32_t kCharIDToTypeID = 0x41723033;  // Ar03
inline constexpr int32_t kTypeIDToCharID = 0x41723034;  // Ar04
inline constexpr int32_t kExecuteActionGet = 0x41476574;  // AGet
inline constexpr int32_t kExecuteAction = 0x506c6179;  // Play
inline constexpr int32_t kLoad = 0x4c64536c;  // LdSl
inline constexpr int32_t kActiveDocument = 0x70414463;  // pADc
inline constexpr int32_t kDocuments = 0x646f6375;  // docu
inline constexpr int32_t kFonts = 0x63466e74;  // cFnt
inline constexpr int32_t kCurrentTool = 0x63546f6c;  // cTol
inline constexpr int32_t kVersion = 0x76657273;  // vers
inline constexpr int32_t kPath = 0x70507468;  // pPth
inline constexpr int32_t kVisible = 0x70555673;  // pUVs
inline constexpr int32_t kForegroundColor = 0x66674363;  // fgCc
inline constexpr int32_t kBackgroundColor = 0x62674363;  // bgCc
inline constexpr int32_t kNotifiers = 0x454e3032;  // EN02
inline constexpr int32_t kNotifiersEnabled = 0x454e3036;  // EN06
}  // namespace app

// ActionDescriptor.
namespace desc {
inline constexpr int32_t kCount = 0x50416374;  // PAct
inline constexpr int32_t kGetKey = 0x4d413130;  // MA10
inline constexpr int32_t kGetType = 0x4d413137;  // MA17
inline constexpr int32_t kHasKey = 0x4d413230;  // MA20
inline constexpr int32_t kGetBoolean = 0x4d413033;  // MA03
inline constexpr int32_t kGetDouble = 0x4d413036;  // MA06
inline constexpr int32_t kGetEnumerationValue = 0x4d413038;  // MA08
inline constexpr int32_t kGetInteger = 0x4d413039;  // MA09
inline constexpr int32_t kGetList = 0x4d413131;  // MA11
inline constexpr int32_t kGetObjectValue = 0x4d413133;  // MA13
inline constexpr int32_t kGetString = 0x4d413136;  // MA16
inline constexpr int32_t kGetUnitDoubleValue = 0x4d413139;  // MA19
inline constexpr int32_t kPutBoolean = 0x4d413232;  // MA22
inline constexpr int32_t kPutEnumerated = 0x4d413235;  // MA25
inline constexpr int32_t kPutInteger = 0x4d413236;  // MA26
inline constexpr int32_t kPutObject = 0x4d413238;  // MA28
inline constexpr int32_t kPutPath = 0x4d413239;  // MA29
inline constexpr int32_t kPutReference = 0x4d413330;  // MA30
inline constexpr int32_t kPutString = 0x4d413331;  // MA31
}  // namespace desc

// ActionList: positions count from 0.
namespace list {
inline constexpr int32_t kCount = 0x50416374;  // PAct
inline constexpr int32_t kGetDouble = 0x4d413036;  // MA06
inline constexpr int32_t kGetObjectValue = 0x4d413133;  // MA13
inline constexpr int32_t kGetReference = 0x4d413135;  // MA15
inline constexpr int32_t kGetString = 0x4d413136;  // MA16
}  // namespace list

// ActionReference.
namespace ref {
inline constexpr int32_t kGetIndex = 0x4d413339;  // MA39
inline constexpr int32_t kPutClass = 0x4d413433;  // MA43
inline constexpr int32_t kPutEnumerated = 0x4d413434;  // MA44
inline constexpr int32_t kPutIdentifier = 0x4d413435;  // MA45
inline constexpr int32_t kPutIndex = 0x4d413436;  // MA46
inline constexpr int32_t kPutName = 0x4d413437;  // MA47
inline constexpr int32_t kPutProperty = 0x4d413439;  // MA49
}  // namespace ref

// Object model: documents, layers, history states, colours, fonts, notifiers, collections.
namespace obj {
inline constexpr int32_t kItem = 0x00000000;  // (none)
inline constexpr int32_t kCount = 0x636e7465;  // cnte
inline constexpr int32_t kName = 0x706e616d;  // pnam
inline constexpr int32_t kActiveLayer = 0x63724c72;  // crLr
inline constexpr int32_t kArtLayers = 0x63434c72;  // cCLr
inline constexpr int32_t kLayerSets = 0x634c5a74;  // cLZt
inline constexpr int32_t kChannels = 0x6343486e;  // cCHn
inline constexpr int32_t kPathItems = 0x50543033;  // PT03
inline constexpr int32_t kHistoryStates = 0x63487374;  // cHst
inline constexpr int32_t kActiveHistoryState = 0x44436873;  // DChs
inline constexpr int32_t kActiveHistoryBrushSource = 0x44436272;  // DCbr
inline constexpr int32_t kSelection = 0x73656c65;  // sele
inline constexpr int32_t kFullName = 0x44707468;  // Dpth
inline constexpr int32_t kWidth = 0x57647468;  // Wdth
inline constexpr int32_t kHeight = 0x48676874;  // Hght
inline constexpr int32_t kQuickMaskMode = 0x514d4d64;  // QMMd
inline constexpr int32_t kClose = 0x636c6f73;  // clos
inline constexpr int32_t kIndex = 0x70696478;  // pidx: a history state's position in its collection (method)
inline constexpr int32_t kBounds = 0x426e6473;  // Bnds
inline constexpr int32_t kItemIndex = 0x70734978;  // psIx
inline constexpr int32_t kId = 0x49442020;  // ID  
inline constexpr int32_t kBlendMode = 0x426c4d64;  // BlMd
inline constexpr int32_t kOpacity = 0x4f706374;  // Opct
inline constexpr int32_t kFillOpacity = 0x464f7063;  // FOpc
inline constexpr int32_t kAllLocked = 0x416c4c63;  // AlLc
inline constexpr int32_t kPixelsLocked = 0x50784c63;  // PxLc
inline constexpr int32_t kPositionLocked = 0x50744c63;  // PtLc
inline constexpr int32_t kTransparentPixelsLocked = 0x54704c63;  // TpLc
inline constexpr int32_t kRgb = 0x63524776;  // cRGv
inline constexpr int32_t kHexValue = 0x70524878;  // pRHx
inline constexpr int32_t kAdd = 0x454e3032;  // EN02
inline constexpr int32_t kRemoveAll = 0x5241456c;  // RAEl
}  // namespace obj

}  // namespace ostrel::dispid
