// The detailed guidance row VERBOSE.
#include <gtest/gtest.h>

#include "ostrel/OstrelCore.h"
#include "../support/line_cases.h"

namespace {

using ostrel::test_support::LineCase;

// Each case names the mistake it would catch.
constexpr LineCase kLineCases[] = {
    {L"VERBOSE,0", 1, L"详细引导", L"详细引导-前景色"},
    {L"VERBOSE,1,a", 1, L"详细引导", L"详细引导-渐变名称:a"},  // the gradient's name as recorded
    {L"VERBOSE,1", 0, L"", L""},  // code 1 wants the name
    {L"VERBOSE,2", 1, L"详细引导", L"详细引导-渐变"},
    {L"VERBOSE,3,2,x", 1, L"详细引导", L"详细引导-调整边缘:全局调整,参数：x"},  // a section
    {L"VERBOSE,3,4,7", 1, L"详细引导", L"详细引导-调整边缘:输出设置,参数：7"},  // the section 4, not control 4
    {L"VERBOSE,3,8,7", 1, L"详细引导", L"详细引导-调整边缘:半径,参数：7"},  // no section: the control
    {L"VERBOSE,3,0,", 1, L"详细引导", L"详细引导-调整边缘:视图模式,参数："},  // 0 is no section
    {L"VERBOSE,3,99,7", 1, L"详细引导", L"详细引导-调整边缘:,参数：7"},  // neither: an empty place
    {L"VERBOSE,3,2", 0, L"", L""},
    {L"VERBOSE,4,262144", 1, L"详细引导", L"详细引导-图层样式:投影"},
    {L"VERBOSE,4,2048", 1, L"详细引导", L"详细引导-图层样式:"},
    {L"VERBOSE,5,4", 1, L"详细引导", L"详细引导-调整图层:色阶"},
    {L"VERBOSE,10,0", 1, L"CameraRaw", L"CameraRaw-设置面板:基本"},
    {L"VERBOSE,10", 0, L"", L""},
    {L"VERBOSE,11", 1, L"GV_CAMERA_RAW_OK", L"GV_CAMERA_RAW_OK-点击确定"},
    {L"VERBOSE,20,0,51", 1, L"滤镜库", L"滤镜库-设置滤镜:成角的线条"},  // the filter is item 3
    {L"VERBOSE,20,0,5", 1, L"滤镜库", L"滤镜库-设置滤镜:"},
    {L"VERBOSE,20,0", 0, L"滤镜库", L""},  // fails with the title left set
    {L"VERBOSE,20,1", 1, L"滤镜库", L"滤镜库-新建效果图层"},
    {L"VERBOSE,20,2,9", 1, L"滤镜库", L"滤镜库-确定关闭"},
    {L"VERBOSE,20,3", 0, L"滤镜库", L""},
    {L"VERBOSE,6", 0, L"", L""},  // free codes
    {L"VERBOSE,21,1,1", 0, L"", L""},
    {L"VERBOSE", 0, L"", L""},
    {L"VERBOSE,x", 1, L"详细引导", L"详细引导-前景色"},  // x reads as 0
};

// The names that the guidance codes take from their lists, checked at the ends of those lists.
constexpr LineCase kListEnds[] = {
    {L"VERBOSE,3,1,0", 1, L"详细引导", L"详细引导-调整边缘:边缘检测,参数：0"},
    {L"VERBOSE,3,19,1", 1, L"详细引导", L"详细引导-调整边缘:确定,参数：1"},
    {L"VERBOSE,4,1", 1, L"详细引导", L"详细引导-图层样式:效果"},
    {L"VERBOSE,5,0", 1, L"详细引导", L"详细引导-调整图层:纯色"},
    {L"VERBOSE,5,18", 1, L"详细引导", L"详细引导-调整图层:可选颜色"},
    {L"VERBOSE,10,14", 1, L"CameraRaw", L"CameraRaw-设置面板:预设"},
    {L"VERBOSE,20,0,0", 1, L"滤镜库", L"滤镜库-设置滤镜:滤镜库"},
    {L"VERBOSE,20,0,265", 1, L"滤镜库", L"滤镜库-设置滤镜:涂抹棒"},
};

TEST(VerboseRowTest, NamesAtTheEndsOfTheirLists) {
  Ostrel_Init();
  ostrel::test_support::ExpectSteps(kListEnds);
}

TEST(VerboseRowTest, DispatchedLinesGiveTheirSteps) {
  Ostrel_Init();
  ostrel::test_support::ExpectSteps(kLineCases);
}

}  // namespace
