#pragma once
// Where each element sits in the two presentations of the table, and the
// classes that colour it. Pure data: the window places its buttons from here.
//
//   layout 1 (tipotabla1): 18 columns; the lanthanides and actinides in two
//            rows of their own below (rows 9 and 10), 15 each from La and Ac.
//   layout 2 (tipotabla2): 32 columns, the f-block inside periods 6 and 7;
//            group g >= 3 stands in column g + 14.
#include <QString>
#include <array>

struct TableCell {
  int row = 0;  // 1-based
  int col = 0;  // 1-based
};

inline constexpr int kGroupCount = 18;

// The period (1..7) of element z.
int elementPeriod(int z);
// The group (1..18) of z; 0 for La..Lu and Ac..Lr, the f-block.
int elementGroup(int z);
// The cell of z in layout 1 or 2.
TableCell elementCell(int z, int layout);
// The column of a group head (1..18) in a layout.
int groupColumn(int group, int layout);
// Rows and columns of a layout's grid.
int layoutRows(int layout);
int layoutColumns(int layout);

// The colour of the symbol on the sheet (red in the low byte): 200 gases,
// 16744576 liquids, 50450 artificial elements, 0 the rest.
long symbolColour(int z);
bool isArtificial(int z);  // shown in italics on its button
bool isLiquid(int z);      // underlined on its button

// The class that fills a button, one of six, named by strings 1017 to 1022.
enum class ElementClass { AlkaliMetal, TransitionMetal, InnerTransition, OtherMetal, NonMetal, NobleGas };
ElementClass elementClass(int z);
inline int classStringId(ElementClass c) { return 1017 + static_cast<int>(c); }

// The group heads: current numbering "1".."18", or the old one, whose
// eighth head is "VIII" (the marker of which numbering stands).
const std::array<QString, kGroupCount>& currentGroupHeads();
const std::array<QString, kGroupCount>& oldGroupHeads();
