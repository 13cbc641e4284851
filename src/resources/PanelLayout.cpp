#include "resources/PanelLayout.h"

namespace tessel8 {

namespace {

// clang-format off
constexpr PanelRow kPanel[] = {
    // master and reverb
    {.tag = 0, .kind = ControlKind::OnOffButton, .place = {46, 21, 103, 78}, .strip = 197, .images = 2, .standard = 0.0f},  // POWER
    {.tag = 1, .kind = ControlKind::Knob, .place = {45, 117, 96, 167}, .strip = 196, .images = 101, .standard = 0.5f},  // Input
    {.tag = 2, .kind = ControlKind::Knob, .place = {145, 117, 195, 167}, .strip = 237, .images = 101, .standard = 0.5f},  // Output
    {.tag = 3, .kind = ControlKind::Knob, .place = {97, 117, 145, 167}, .strip = 195, .images = 101, .standard = 0.5f},  // Mix
    {.tag = 216, .kind = ControlKind::KickButton, .place = {766, 21, 823, 78}, .strip = 219, .images = 2},  // tap pad
    {.tag = 23, .kind = ControlKind::VerticalSwitch, .place = {724, 44, 762, 84}, .strip = 221, .images = 2, .standard = 0.0f, .positions = 2},  // Tap_Pad
    {.tag = 22, .kind = ControlKind::OnOffButton, .place = {681, 92, 720, 122}, .strip = 208, .images = 2},  // ActRev
    {.tag = 18, .kind = ControlKind::VerticalSwitch, .place = {717, 124, 752, 164}, .strip = 207, .images = 2, .standard = 0.0f, .positions = 2},  // ModeRev
    {.tag = 19, .kind = ControlKind::VerticalSwitch, .place = {679, 124, 717, 164}, .strip = 209, .images = 2, .standard = 0.0f, .positions = 2},  // TypeRev
    {.tag = 20, .kind = ControlKind::Knob, .place = {753, 125, 791, 166}, .strip = 205, .images = 101, .standard = 0.125f},  // DampRev
    {.tag = 21, .kind = ControlKind::Knob, .place = {790, 125, 830, 164}, .strip = 206, .images = 101, .standard = 0.5f},  // AmtRev

    // tap rows
    {.tag = 176, .kind = ControlKind::TapButton, .place = {27, 195, 56, 226}, .strip = 211, .images = 2, .count = 8, .stepY = 36, .stripStep = 1},  // ActTap1-8
    {.tag = 32, .kind = ControlKind::Knob, .place = {76, 193, 109, 228}, .strip = 238, .images = 101, .standard = 0.0f, .count = 8, .stepY = 36},  // AmtFBT1-8
    {.tag = 40, .kind = ControlKind::OnOffButton, .place = {109, 195, 122, 207}, .strip = 240, .images = 2, .count = 8, .stepY = 36},  // FBPostT1-8
    {.tag = 48, .kind = ControlKind::Knob, .place = {125, 194, 160, 228}, .strip = 133, .images = 101, .standard = 0.5f, .count = 8, .stepY = 36},  // GainT1-8
    {.tag = 56, .kind = ControlKind::WidthKnob, .place = {160, 194, 195, 228}, .strip = 131, .images = 101, .count = 8, .stepY = 36},  // WidthT1-8
    {.tag = 64, .kind = ControlKind::Knob, .place = {195, 194, 230, 228}, .strip = 222, .images = 101, .standard = 0.5f, .count = 8, .stepY = 36},  // PanTap1-8
    {.tag = 320, .kind = ControlKind::QuickKickButton, .place = {471, 195, 486, 228}, .strip = 138, .images = 2, .count = 8, .stepY = 36},  // delay step up
    {.tag = 312, .kind = ControlKind::QuickKickButton, .place = {230, 194, 245, 227}, .strip = 137, .images = 2, .count = 8, .stepY = 36},  // delay step down
    {.tag = 24, .kind = ControlKind::DelaySlider, .place = {245, 192, 471, 228}, .strip = 135, .images = 201, .standard = 0.0f, .count = 8, .stepY = 36},  // DelayT1-8
    {.tag = 193, .kind = ControlKind::OnOffButton, .place = {56, 196, 75, 211}, .strip = 141, .images = 2, .count = 8, .stepY = 36},  // TAPtoFB1-8
    {.tag = 184, .kind = ControlKind::OnOffButton, .place = {56, 211, 75, 226}, .strip = 194, .images = 2, .count = 8, .stepY = 36},  // LinkTap1-8
    {.tag = 152, .kind = ControlKind::OnOffButton, .place = {728, 196, 749, 211}, .strip = 198, .images = 2, .count = 8, .stepY = 36},  // ActDrvT1-8
    {.tag = 136, .kind = ControlKind::OnOffButton, .place = {728, 211, 749, 226}, .strip = 204, .images = 2, .count = 8, .stepY = 36},  // PreDrvT1-8
    {.tag = 144, .kind = ControlKind::Knob, .place = {751, 193, 789, 228}, .strip = 223, .images = 101, .standard = 0.5f, .count = 8, .stepY = 36},  // DriveT1-8
    {.tag = 168, .kind = ControlKind::OnOffButton, .place = {788, 196, 809, 226}, .strip = 203, .images = 2, .count = 8, .stepY = 36},  // ActRevT1-8
    {.tag = 160, .kind = ControlKind::Knob, .place = {809, 193, 846, 228}, .strip = 224, .images = 101, .standard = 0.5f, .count = 8, .stepY = 36},  // RevTap1-8
    {.tag = 128, .kind = ControlKind::OnOffButton, .place = {490, 196, 511, 226}, .strip = 201, .images = 2, .count = 8, .stepY = 36},  // ActFltT1-8
    {.tag = 72, .kind = ControlKind::LoopButton, .place = {513, 196, 540, 226}, .strip = 143, .images = 8, .standard = 0.0f, .count = 8, .stepY = 36, .positions = 8},  // TypeFT1-8
    {.tag = 80, .kind = ControlKind::Knob, .place = {545, 194, 580, 228}, .strip = 225, .images = 101, .standard = 0.5f, .count = 8, .stepY = 36},  // FreqFT1-8
    {.tag = 88, .kind = ControlKind::Knob, .place = {580, 194, 615, 228}, .strip = 226, .images = 101, .standard = 0.125f, .count = 8, .stepY = 36},  // ResoFT1-8
    {.tag = 96, .kind = ControlKind::Knob, .place = {615, 193, 650, 228}, .strip = 227, .images = 101, .standard = 0.5f, .count = 8, .stepY = 36},  // GainFT1-8
    {.tag = 104, .kind = ControlKind::Knob, .place = {650, 193, 680, 228}, .strip = 228, .images = 101, .standard = 0.5f, .count = 8, .stepY = 36},  // SourceF1-8
    {.tag = 120, .kind = ControlKind::OnOffButton, .place = {680, 195, 692, 207}, .strip = 142, .images = 2, .count = 8, .stepY = 36},  // PhaseFT1-8
    {.tag = 112, .kind = ControlKind::Knob, .place = {691, 193, 729, 228}, .strip = 229, .images = 101, .standard = 0.5f, .count = 8, .stepY = 36},  // DepthFT1-8

    // feedback row
    {.tag = 214, .kind = ControlKind::OnOffButton, .place = {27, 485, 48, 515}, .strip = 210, .images = 2},  // ActiveFB
    {.tag = 192, .kind = ControlKind::FeedbackModeButton, .place = {52, 487, 120, 514}, .strip = 242, .images = 3, .standard = 0.0f},  // ModeFB
    {.tag = 201, .kind = ControlKind::LoopButton, .place = {120, 487, 139, 514}, .strip = 241, .images = 9, .standard = 0.0f, .positions = 9},  // SelectFB
    {.tag = 202, .kind = ControlKind::Knob, .place = {159, 483, 196, 519}, .strip = 134, .images = 101, .standard = 0.0f},  // GainFB
    {.tag = 204, .kind = ControlKind::Knob, .place = {195, 483, 231, 518}, .strip = 132, .images = 101, .standard = 0.0f},  // PanFB_L
    {.tag = 203, .kind = ControlKind::Knob, .place = {245, 483, 286, 518}, .strip = 231, .images = 101, .standard = 1.0f},  // PanFB_R
    {.tag = 205, .kind = ControlKind::OnOffButton, .place = {231, 485, 243, 498}, .strip = 193, .images = 2},  // LinkPanFB
    {.tag = 211, .kind = ControlKind::OnOffButton, .place = {490, 485, 511, 515}, .strip = 201, .images = 2},  // ActFltFB
    {.tag = 206, .kind = ControlKind::LoopButton, .place = {513, 485, 540, 515}, .strip = 144, .images = 6, .standard = 0.0f, .positions = 6},  // TypeFFB
    {.tag = 207, .kind = ControlKind::Knob, .place = {543, 483, 580, 517}, .strip = 232, .images = 101, .standard = 0.5f},  // FreqFFB
    {.tag = 208, .kind = ControlKind::Knob, .place = {580, 483, 617, 517}, .strip = 233, .images = 101, .standard = 0.125f},  // ResoFFB
    {.tag = 209, .kind = ControlKind::Knob, .place = {647, 483, 686, 517}, .strip = 234, .images = 101, .standard = 0.5f},  // SourceFB
    {.tag = 210, .kind = ControlKind::Knob, .place = {690, 483, 729, 517}, .strip = 235, .images = 101, .standard = 0.5f},  // DepthFB
    {.tag = 337, .kind = ControlKind::KickButton, .place = {795, 484, 845, 517}, .strip = 243, .images = 2},  // panic
    {.tag = 213, .kind = ControlKind::OnOffButton, .place = {729, 485, 750, 515}, .strip = 199, .images = 2},  // ActDrvFB
    {.tag = 212, .kind = ControlKind::Knob, .place = {750, 483, 789, 517}, .strip = 236, .images = 101, .standard = 0.5f},  // DriveFB

    // display
    {.tag = 426, .kind = ControlKind::Movie, .place = {222, 37, 538, 148}, .strip = 170},  // display ground
    {.tag = 425, .kind = ControlKind::Movie, .place = {225, 110, 251, 121}, .strip = 171, .images = 2, .mode = PanelMode::Panel},  // MIDI activity lamp
    {.tag = 332, .kind = ControlKind::OnOffButton, .place = {252, 110, 285, 121}, .strip = 172, .images = 2, .mode = PanelMode::Panel},  // "MIDI LEARN"
    {.tag = 333, .kind = ControlKind::KickButton, .place = {317, 110, 330, 121}, .strip = 174, .images = 2, .mode = PanelMode::Panel},  // "MIDI RESET"
    {.tag = 334, .kind = ControlKind::KickButton, .place = {287, 110, 300, 121}, .strip = 173, .images = 2, .mode = PanelMode::Panel},  // "MIDI LOAD"
    {.tag = 335, .kind = ControlKind::KickButton, .place = {302, 110, 315, 121}, .strip = 175, .images = 2, .mode = PanelMode::Panel},  // "MIDI SAVE"
    {.tag = 4, .kind = ControlKind::HorizontalSwitch, .place = {351, 110, 434, 121}, .strip = 188, .images = 3, .standard = 0.0f, .mode = PanelMode::Panel, .positions = 3},  // TimeMode
    {.tag = 311, .kind = ControlKind::QuickKickButton, .place = {379, 134, 390, 145}, .strip = 176, .images = 2},  // Tempo down
    {.tag = 310, .kind = ControlKind::QuickKickButton, .place = {423, 134, 434, 145}, .strip = 177, .images = 2},  // Tempo up
    {.tag = 5, .kind = ControlKind::Movie, .place = {394, 125, 399, 132}, .strip = 185, .images = 100},  // Tempo digits, four
    {.tag = 5, .kind = ControlKind::Movie, .place = {400, 125, 405, 132}, .strip = 185, .images = 100},
    {.tag = 5, .kind = ControlKind::Movie, .place = {406, 125, 411, 132}, .strip = 185, .images = 100},
    {.tag = 5, .kind = ControlKind::Movie, .place = {414, 125, 419, 132}, .strip = 185, .images = 100},
    {.tag = 5, .kind = ControlKind::DragArea, .place = {390, 126, 422, 144}, .standard = 0.28125f, .wheelScale = 0.0025f},  // Tempo drag area
    {.tag = 308, .kind = ControlKind::QuickKickButton, .place = {325, 134, 336, 145}, .strip = 176, .images = 2},  // Note down
    {.tag = 309, .kind = ControlKind::QuickKickButton, .place = {363, 134, 374, 145}, .strip = 177, .images = 2},  // Note up
    {.tag = 6, .kind = ControlKind::Movie, .place = {338, 125, 343, 132}, .strip = 185, .images = 100},  // Note glyphs, four
    {.tag = 6, .kind = ControlKind::Movie, .place = {344, 125, 349, 132}, .strip = 185, .images = 100},
    {.tag = 6, .kind = ControlKind::Movie, .place = {350, 125, 355, 132}, .strip = 185, .images = 100},
    {.tag = 6, .kind = ControlKind::Movie, .place = {356, 125, 361, 132}, .strip = 185, .images = 100},
    {.tag = 6, .kind = ControlKind::DragArea, .place = {336, 125, 363, 145}, .wheelScale = 0.6f},  // Note drag area
    {.tag = 424, .kind = ControlKind::Movie, .place = {246, 64, 391, 75}, .strip = 192, .images = 73, .mode = PanelMode::Panel},  // lower meter
    {.tag = 423, .kind = ControlKind::Movie, .place = {246, 40, 391, 51}, .strip = 192, .images = 73, .mode = PanelMode::Panel},  // upper meter
    {.tag = 328, .kind = ControlKind::VerticalSwitch, .place = {413, 40, 434, 75}, .strip = 163, .images = 3, .standard = 0.5f, .mode = PanelMode::Panel, .positions = 3},  // meter mode switch
    {.tag = 328, .kind = ControlKind::Movie, .place = {392, 64, 395, 75}, .strip = 178, .images = 2, .mode = PanelMode::Panel},  // lower clip lamp
    {.tag = 328, .kind = ControlKind::Movie, .place = {392, 40, 395, 51}, .strip = 178, .images = 2, .mode = PanelMode::Panel},  // upper clip lamp
    {.tag = 328, .kind = ControlKind::Movie, .place = {399, 64, 407, 75}, .strip = 166, .images = 2, .mode = PanelMode::Panel},  // lower channel letter
    {.tag = 328, .kind = ControlKind::Movie, .place = {399, 40, 407, 51}, .strip = 165, .images = 2, .mode = PanelMode::Panel},  // upper channel letter
    {.tag = 328, .kind = ControlKind::Movie, .place = {225, 42, 242, 49}, .strip = 164, .images = 2, .mode = PanelMode::Panel},  // upper source word
    {.tag = 328, .kind = ControlKind::Movie, .place = {225, 66, 242, 73}, .strip = 164, .images = 2, .mode = PanelMode::Panel},  // lower source word
    {.tag = 426, .kind = ControlKind::Movie, .place = {237, 52, 402, 63}, .strip = 190, .images = 2, .mode = PanelMode::Panel},  // meter scale
    {.tag = 426, .kind = ControlKind::Movie, .place = {447, 51, 452, 132}, .strip = 153, .mode = PanelMode::Panel},  // left bar scale
    {.tag = 426, .kind = ControlKind::Movie, .place = {531, 51, 536, 132}, .strip = 153, .mode = PanelMode::Panel},  // right bar scale
    {.tag = 426, .kind = ControlKind::Movie, .place = {538, 40, 555, 135}, .strip = 161, .images = 22},  // scale of the edit parameter
    {.tag = 329, .kind = ControlKind::KickButton, .place = {448, 134, 459, 145}, .strip = 167, .images = 2},  // edit parameter back
    {.tag = 330, .kind = ControlKind::KickButton, .place = {524, 134, 535, 145}, .strip = 168, .images = 2},  // edit parameter forward
    {.tag = 331, .kind = ControlKind::Movie, .place = {462, 136, 521, 143}, .strip = 179, .images = 11},  // name of the edit parameter
    {.tag = 176, .kind = ControlKind::OnOffButton, .place = {453, 40, 460, 49}, .strip = 145, .images = 2, .mode = PanelMode::Panel, .count = 8, .stepX = 10, .stripStep = 1},  // small tap switches, pitch 10 to the right

    // bars, on the panel one set at a time
    {.tag = 226, .kind = ControlKind::Bar, .place = {453, 51, 463, 132}, .strip = 181, .images = 41, .standard = 0.0f, .mode = PanelMode::Panel, .count = 8, .stepX = 10},  // AmtFBT1-8
    {.tag = 218, .kind = ControlKind::Bar, .place = {453, 51, 463, 132}, .strip = 180, .images = 41, .standard = 0.5f, .mode = PanelMode::Panel, .count = 8, .stepX = 10},  // GainT1-8
    {.tag = 234, .kind = ControlKind::WidthBar, .place = {453, 51, 463, 132}, .strip = 184, .images = 41, .mode = PanelMode::Panel, .count = 8, .stepX = 10},  // WidthT1-8
    {.tag = 242, .kind = ControlKind::Bar, .place = {453, 51, 463, 132}, .strip = 180, .images = 41, .standard = 0.5f, .mode = PanelMode::Panel, .count = 8, .stepX = 10},  // PanTap1-8
    {.tag = 250, .kind = ControlKind::Bar, .place = {453, 51, 463, 132}, .strip = 181, .images = 41, .standard = 0.5f, .mode = PanelMode::Panel, .count = 8, .stepX = 10},  // FreqFT1-8
    {.tag = 258, .kind = ControlKind::Bar, .place = {453, 51, 463, 132}, .strip = 181, .images = 41, .standard = 0.125f, .mode = PanelMode::Panel, .count = 8, .stepX = 10},  // ResoFT1-8
    {.tag = 266, .kind = ControlKind::Bar, .place = {453, 51, 463, 132}, .strip = 180, .images = 41, .standard = 0.5f, .mode = PanelMode::Panel, .count = 8, .stepX = 10},  // GainFT1-8
    {.tag = 274, .kind = ControlKind::Bar, .place = {453, 51, 463, 132}, .strip = 180, .images = 41, .standard = 0.5f, .mode = PanelMode::Panel, .count = 8, .stepX = 10},  // SourceF1-8
    {.tag = 282, .kind = ControlKind::Bar, .place = {453, 51, 463, 132}, .strip = 180, .images = 41, .standard = 0.5f, .mode = PanelMode::Panel, .count = 8, .stepX = 10},  // DepthFT1-8
    {.tag = 290, .kind = ControlKind::Bar, .place = {453, 51, 463, 132}, .strip = 181, .images = 41, .standard = 0.5f, .mode = PanelMode::Panel, .count = 8, .stepX = 10},  // DriveT1-8
    {.tag = 298, .kind = ControlKind::Bar, .place = {453, 51, 463, 132}, .strip = 181, .images = 41, .standard = 0.5f, .mode = PanelMode::Panel, .count = 8, .stepX = 10},  // RevTap1-8

    // modulation
    {.tag = 17, .kind = ControlKind::OnOffButton, .place = {565, 40, 605, 51}, .strip = 169, .images = 2, .standard = 0.0f},  // ActMod
    {.tag = 15, .kind = ControlKind::OnOffButton, .place = {617, 40, 644, 51}, .strip = 187, .images = 2, .standard = 0.0f},  // SyncMod
    {.tag = 16, .kind = ControlKind::HorizontalSwitch, .place = {565, 53, 644, 64}, .strip = 191, .images = 5, .standard = 0.0f, .positions = 5},  // WaveMod
    {.tag = 9, .kind = ControlKind::KickButton, .place = {565, 75, 576, 86}, .strip = 158, .images = 2},  // NumMod key
    {.tag = 10, .kind = ControlKind::KickButton, .place = {633, 75, 644, 86}, .strip = 189, .images = 2},  // DenomMod key
    {.tag = 11, .kind = ControlKind::Movie, .place = {592, 67, 597, 74}, .strip = 185, .images = 100},  // FreqMod digits, four
    {.tag = 11, .kind = ControlKind::Movie, .place = {598, 67, 603, 74}, .strip = 185, .images = 100},
    {.tag = 11, .kind = ControlKind::Movie, .place = {606, 67, 611, 74}, .strip = 185, .images = 100},
    {.tag = 11, .kind = ControlKind::Movie, .place = {612, 67, 617, 74}, .strip = 185, .images = 100},
    {.tag = 11, .kind = ControlKind::DragArea, .place = {576, 67, 633, 86}, .standard = 0.5f, .wheelScale = 0.025f},  // FreqMod drag area
    {.tag = 12, .kind = ControlKind::HorizontalBar, .place = {568, 96, 641, 108}, .strip = 182, .images = 37, .standard = 0.5f},  // PhaseMod
    {.tag = 14, .kind = ControlKind::HorizontalBar, .place = {568, 119, 641, 131}, .strip = 183, .images = 37, .standard = 0.5f},  // SpeedEF
    {.tag = 13, .kind = ControlKind::LoopButton, .place = {615, 134, 642, 145}, .strip = 186, .images = 10, .standard = 0.0f, .positions = 10},  // SourceEF

    // texts, ranges and graph
    {.tag = 419, .kind = ControlKind::BigText, .place = {225, 80, 434, 96}, .strip = 245, .images = 128, .mode = PanelMode::Panel},  // big text
    {.tag = 420, .kind = ControlKind::SmallText, .place = {225, 98, 434, 105}, .strip = 247, .images = 128, .mode = PanelMode::Panel},  // small text
    {.tag = 306, .kind = ControlKind::KickButton, .place = {309, 134, 320, 145}, .strip = 177, .images = 2},  // delay range down (smaller range)
    {.tag = 307, .kind = ControlKind::KickButton, .place = {250, 134, 261, 145}, .strip = 176, .images = 2},  // delay range up (larger range)
    {.tag = 7, .kind = ControlKind::RangeButton, .place = {261, 125, 309, 145}, .strip = 157, .images = 19},  // delay range readout
    {.tag = 7, .kind = ControlKind::Movie, .place = {225, 113, 531, 120}, .strip = 162, .images = 19, .mode = PanelMode::Graph},  // ruler of the graph
    {.tag = 336, .kind = ControlKind::OnOffButton, .place = {225, 125, 245, 145}, .strip = 160, .images = 2},  // graph mode switch
    {.tag = 426, .kind = ControlKind::TapView, .place = {225, 40, 531, 113}, .strip = 159, .images = 3, .mode = PanelMode::Graph, .count = 8},  // tap 8 is made first and lies under the others
    {.tag = 357, .kind = ControlKind::Movie, .place = {111, 57, 199, 91}, .strip = 129},  // logo, display only

    // column heads
    {.tag = 338, .kind = ControlKind::ColumnHead, .place = {26, 173, 58, 192}},
    {.tag = 339, .kind = ControlKind::ColumnHead, .place = {81, 173, 103, 192}},
    {.tag = 340, .kind = ControlKind::ColumnHead, .place = {103, 173, 125, 192}},
    {.tag = 341, .kind = ControlKind::ColumnHead, .place = {130, 173, 152, 192}},
    {.tag = 342, .kind = ControlKind::ColumnHead, .place = {161, 173, 190, 192}},
    {.tag = 343, .kind = ControlKind::ColumnHead, .place = {200, 173, 220, 192}},
    {.tag = 344, .kind = ControlKind::ColumnHead, .place = {332, 173, 384, 192}},
    {.tag = 345, .kind = ControlKind::ColumnHead, .place = {490, 173, 511, 192}},
    {.tag = 346, .kind = ControlKind::ColumnHead, .place = {514, 173, 540, 192}},
    {.tag = 347, .kind = ControlKind::ColumnHead, .place = {547, 173, 573, 192}},
    {.tag = 348, .kind = ControlKind::ColumnHead, .place = {582, 173, 608, 192}},
    {.tag = 349, .kind = ControlKind::ColumnHead, .place = {617, 173, 643, 192}},
    {.tag = 350, .kind = ControlKind::ColumnHead, .place = {676, 173, 695, 192}},
    {.tag = 351, .kind = ControlKind::ColumnHead, .place = {655, 173, 674, 192}},
    {.tag = 352, .kind = ControlKind::ColumnHead, .place = {695, 173, 721, 192}},
    {.tag = 353, .kind = ControlKind::ColumnHead, .place = {728, 173, 750, 192}},
    {.tag = 354, .kind = ControlKind::ColumnHead, .place = {757, 173, 776, 192}},
    {.tag = 355, .kind = ControlKind::ColumnHead, .place = {789, 173, 808, 192}},
    {.tag = 356, .kind = ControlKind::ColumnHead, .place = {816, 173, 836, 192}},
};

constexpr PanelRow kPresetStrip[] = {
    {.tag = 428, .kind = ControlKind::TextEdit, .place = {203, 550, 344, 563}, .strip = 128},  // nameField
    {.tag = 440, .kind = ControlKind::OptionMenu, .place = {344, 550, 357, 563}, .strip = 128},  // programList
    {.tag = 429, .kind = ControlKind::Rocker, .place = {364, 550, 394, 563}, .strip = 995, .images = 5},  // programRocker
    {.tag = 430, .kind = ControlKind::SaveLoadButton, .place = {88, 550, 105, 565}, .strip = 990, .images = 3},  // loadBankButton
    {.tag = 431, .kind = ControlKind::SaveLoadButton, .place = {37, 550, 54, 565}, .strip = 991, .images = 3},  // saveBankButton
    {.tag = 441, .kind = ControlKind::StripDoubleClickButton, .place = {54, 550, 86, 563}, .strip = 992, .images = 3},  // bankLabelButton
    {.tag = 432, .kind = ControlKind::SaveLoadButton, .place = {180, 550, 197, 565}, .strip = 990, .images = 3},  // loadPresetButton
    {.tag = 433, .kind = ControlKind::SaveLoadButton, .place = {117, 550, 134, 565}, .strip = 991, .images = 3},  // savePresetButton
    {.tag = 442, .kind = ControlKind::StripDoubleClickButton, .place = {135, 550, 179, 563}, .strip = 993, .images = 3},  // presetLabelButton
    {.tag = 445, .kind = ControlKind::StripKickButton, .place = {446, 550, 463, 565}, .strip = 990, .images = 3},  // memoRecallAButton
    {.tag = 443, .kind = ControlKind::StripKickButton, .place = {413, 550, 430, 565}, .strip = 991, .images = 3},  // memoStoreAButton
    {.tag = 446, .kind = ControlKind::StripKickButton, .place = {511, 550, 528, 565}, .strip = 990, .images = 3},  // memoRecallBButton
    {.tag = 444, .kind = ControlKind::StripKickButton, .place = {477, 550, 494, 565}, .strip = 991, .images = 3},  // memoStoreBButton
    {.tag = 447, .kind = ControlKind::StripOnOffButton, .place = {842, 553, 853, 560}, .strip = 988, .images = 3},  // focusButton
    {.tag = 448, .kind = ControlKind::StripKickButton, .place = {857, 552, 868, 561}, .strip = 989, .images = 3},  // manualButton
};
// clang-format on

}  // namespace

std::span<const PanelRow> panelRows() {
    return kPanel;
}

std::span<const PanelRow> presetStripRows() {
    return kPresetStrip;
}

}  // namespace tessel8
