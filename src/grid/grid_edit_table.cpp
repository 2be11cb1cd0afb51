#include "framework/choices.h"
#include "framework/table_builder.h"
#include "grid/grid_edit.h"

namespace obk {

const ControlTable& GridEdit::memberTable() {
    using C = GridEdit;
    constexpr auto asInteger = ValueType::integer;
    constexpr OleColour grey(SystemColour::buttonShadow);
    static const ControlTable table =
        TableBuilder<C>(
            {.name = u"GridEdit",
             .help = u"An editable grid with captions, a type for each column and a text file of its own",
             .classId = {0x94ed36f5, 0xd7ca, 0x4fa1, {0xa8, 0xbc, 0x18, 0xe0, 0x5b, 0x03, 0x14, 0xd6}},
             .interfaceId = {0xc2ae211f, 0xffbb, 0x47dc, {0x92, 0x0a, 0x67, 0x41, 0xc4, 0x2a, 0xc4, 0x0e}},
             .eventInterfaceId =
                 {0x4cfa70eb, 0x49ad, 0x4741, {0x9d, 0x4b, 0xe7, 0x79, 0x00, 0x45, 0x29, 0x2d}},
             .toolboxPicture = 105})

            .property<&C::mstrDragInfo, &C::SetmstrDragInfo>(1, u"mstrDragInfo",
                                                             u"A text of the host's own, for what is dragged")
            .property<&C::blnPUBSHOWALARM, &C::SetblnPUBSHOWALARM>(2, u"blnPUBSHOWALARM",
                                                                   u"A flag of the host's own")
            .writeOnlyProperty<&C::SetAllowGridEdit>(
                3, u"AllowGridEdit",
                u"Whether editors open over the cells, and keys add and delete rows; True at first")
            .method<&C::barCol>(4, u"barCol", u"Colours the header bar", {u"newcol"})
            .method<&C::BarColText>(5, u"BarColText", u"Colours the captions of the header bar", {u"newcol"})
            .property<&C::BarHeader, &C::SetBarHeader>(6, u"BarHeader", u"Show/hide the Grid Header")
            .method<&C::BarHeaderCaptionRead>(
                7, u"BarHeaderCaptionRead", u"The caption of a column; empty where there is none", {u"colno"})
            .method<&C::BarHeaderCaptionSet>(8, u"BarHeaderCaptionSet", u"Gives a column its caption",
                                             {u"colno", u"sCaption"})
            .property<&C::BarHeaderColorRefresh, &C::SetBarHeaderColorRefresh>(9, u"BarHeaderColorRefresh",
                                                                               u"Colour of the header bar")
            .method<&C::BarHeaderColumn>(
                10, u"BarHeaderColumn",
                u"The column at which the header bar was last pressed, or -1; the current column moves there")
            .method<&C::BarHeaderRefresh>(11, u"BarHeaderRefresh", u"Draws the header bar anew")
            .method<&C::BarHeaderSort>(
                12, u"BarHeaderSort",
                u"Sorts by the column at which the header bar was last pressed, downwards at first and then in turn")
            .property<&C::BorderStyle, &C::SetBorderStyle>(13, u"BorderStyle", u"Show/hide the Grid Border")
            .choices(borderChoices())
            .method<&C::BoxHide>(
                14, u"BoxHide",
                u"Closes the editor and keeps what it holds; raises ChangeEdited in any case, and Change and ChangePost where an editor was open")
            .method<&C::BoxSelect>(15, u"BoxSelect", u"Selects the text of the open editor")
            .method<&C::BoxShow>(
                16, u"BoxShow",
                u"Opens the editor of the current cell and gives it the keyboard; raises Click when it has opened")
            .method<&C::cboLIST_KeyDown>(
                17, u"cboLIST_KeyDown",
                u"Does what a key going down in the list editor does; a key that was used comes back as 0",
                {u"KeyCode", u"Shift"})
            .method<&C::cboLIST_KeyUp>(18, u"cboLIST_KeyUp",
                                       u"Does what a key released in the list editor does",
                                       {u"KeyCode", u"Shift"})
            .method<&C::CellChkSet>(
                19, u"CellChkSet",
                u"Checks a cell for \"a\", \"true\" and 1, unchecks it for all other texts",
                {u"Row", u"Col", u"Value"})
            .method<&C::CellColorReadx>(20, u"CellColorReadx",
                                        u"Makes a cell the current one; the back colour of the whole grid",
                                        {u"rowno", u"colno"})
            .method<&C::CellColorSetx>(21, u"CellColorSetx",
                                       u"Back colour of a cell, which becomes the current one",
                                       {u"Color", u"rowno", u"colno"})
            .method<&C::CellCurrentHeight>(22, u"CellCurrentHeight", u"Height of the current cell in twips")
            .method<&C::CellCurrentLeft>(23, u"CellCurrentLeft",
                                         u"Left edge of the current cell, in twips from the grid's")
            .method<&C::CellCurrentTop>(24, u"CellCurrentTop",
                                        u"Top edge of the current cell, in twips from the grid's")
            .method<&C::CellCurrentWidth>(25, u"CellCurrentWidth", u"Width of the current cell in twips")
            .method<&C::CellEnabledSet>(26, u"CellEnabledSet", u"Greys a cell out, or strikes it through",
                                        {u"rowno", u"colno", {u"StrikeThru", false}, {u"oleForeColor", grey}})
            .method<&C::CellFontSet>(27, u"CellFontSet",
                                     u"Font and fore colour of a cell; the size in points",
                                     {u"rowno",
                                      u"colno",
                                      {u"sFont", TextView()},
                                      {u"Size", TextView()},
                                      {u"Bold", false},
                                      {u"StrikeThru", false},
                                      {u"oleForeColor", grey}})
            .method<&C::CellFormatSet>(28, u"CellFormatSet",
                                       u"Font and fore colour of a cell, as CellFontSet",
                                       {u"rowno",
                                        u"colno",
                                        {u"sFont", TextView()},
                                        {u"Size", TextView()},
                                        {u"Bold", false},
                                        {u"StrikeThru", false},
                                        {u"oleForeColor", grey}})
            .method<&C::CellLeft>(29, u"CellLeft", u"The same as CellCurrentLeft")
            .method<&C::CellSetIcon>(30, u"CellSetIcon", u"Shows a named icon in a cell",
                                     {u"colno", u"rowno", u"iconname"})
            .method<&C::CellTextRead>(31, u"CellTextRead", u"The text of a cell", {u"rowno", u"colno"})
            .method<&C::CellTextSet>(32, u"CellTextSet", u"Text of a cell, which becomes the current one",
                                     {u"rowno", u"colno", u"Text"})
            .method<&C::CelWidth>(33, u"CelWidth", u"The same as CellCurrentWidth")
            .method<&C::raiseChange>(34, u"Change", u"Raises the event Change")
            .method<&C::raiseChangePost>(35, u"ChangePost", u"Raises the event ChangePost")
            .method<&C::ColAdd>(36, u"ColAdd", u"Adds a column after the last one, so many twips wide",
                                {u"ColWidth"})
            .method<&C::ColCurrent>(37, u"ColCurrent", u"The current column, from 0")
            .method<&C::ColDel>(38, u"ColDel", u"Removes the last column; the only one is emptied instead")
            .method<&C::ColsCurrent>(39, u"ColsCurrent", u"Number of columns; 2 in a new grid")
            .method<&C::ColSetFocus>(40, u"ColSetFocus", u"Makes a column the current one", {u"colno"})
            .method<&C::ColsSet>(
                41, u"ColsSet",
                u"Sets the number of columns, 1 to 10001; the texts of the first nine then stand to the left",
                {u"colno"})
            .method<&C::ColTypeRead>(42, u"ColTypeRead",
                                     u"The type of a column as text; empty beyond column 10000", {u"colno"})
            .method<&C::ColTypeSet>(
                43, u"ColTypeSet",
                u"Type of a column: 0 text, 1 date, 2 read-only, 3 check box, 4 list, 5 number, 6 time",
                {u"colno", u"ColTypeVal"})
            .method<&C::ColumnRefreshHeaders>(44, u"ColumnRefreshHeaders",
                                              u"Places the captions over their columns", {u"colno"})
            .method<&C::ColumnVisible>(45, u"ColumnVisible",
                                       u"Shows a column, so many twips wide, or hides it",
                                       {u"colno", u"cWidth", u"cVISIBLE"})
            .method<&C::ColWidth>(46, u"ColWidth", u"Width of a column in twips; 200 and less are ignored",
                                  {u"colno", u"ColWidthVal"})
            .method<&C::ComboAdd>(
                47, u"ComboAdd",
                u"Adds an item to the list of the list editor, which all columns of lists share", {u"Item"})
            .method<&C::ComboClear>(48, u"ComboClear", u"Empties the list of the list editor")
            .method<&C::ComboDel>(49, u"ComboDel", u"Removes an item from the list of the list editor",
                                  {u"Index"})
            .property<&C::Font, &C::SetFont>(50, u"Font", u"Font of the cells and captions")
            .method<&C::FontUpdate>(51, u"FontUpdate",
                                    u"Gives the control's font to the grid, the header bar and the editors")
            .method<&C::GridChange>(52, u"GridChange", u"Does nothing; for hosts that call it")
            .method<&C::GridClear>(53, u"GridClear", u"Empties all cells; rows and columns stay")
            .method<&C::GridColr>(54, u"GridColr", u"Colour of the grid's lines and of what is selected",
                                  {u"newcol"})
            .method<&C::GridColSort>(
                55, u"GridColSort",
                u"Sorts the rows by the current column, downwards and upwards in turn, if the grid has the column colno",
                {u"colno"})
            .method<&C::GridColSortInitialDate>(56, u"GridColSortInitialDate",
                                                u"Sorts the rows by the fifth column, downwards")
            .method<&C::GridFocusShow>(57, u"GridFocusShow", u"Gives the grid the keyboard")
            .method<&C::GridHide>(58, u"GridHide", u"Hides the grid")
            .method<&C::GridLoad>(59, u"GridLoad", u"Loads rows and texts from a text file; its caption",
                                  {u"Path"})
            .method<&C::GridRedraw>(60, u"GridRedraw", u"False suspends the drawing, True resumes it",
                                    {u"Status"})
            .method<&C::GridRefresh>(61, u"GridRefresh", u"Lays the control out again")
            .method<&C::GridReset>(62, u"GridReset", u"Hides and empties the grid, and leaves it one row")
            .method<&C::GridSave>(63, u"GridSave", u"Saves all texts in a text file, with a caption",
                                  {u"Path", u"Header"})
            .method<&C::GridSetFocus>(64, u"GridSetFocus",
                                      u"Makes a cell the current one and opens its editor",
                                      {u"colno", u"rowno"})
            .method<&C::GridShow>(65, u"GridShow", u"Shows the grid")
            .readOnlyProperty<&C::hWnd>(66, u"hWnd", u"Handle of the control's window")
            .method<&C::IsEven>(67, u"IsEven", u"Whether a number is even", {u"Number"})
            .method<&C::MouseCol>(68, u"MouseCol", u"The column below the mouse; -1 for none")
            .property<&C::MousePosn, &C::SetMousePosn>(69, u"MousePosn",
                                                       u"A number of the host's own, for where the mouse is")
            .method<&C::MouseRow>(70, u"MouseRow", u"The row below the mouse; -1 for none")
            .method<&C::RowAdd>(71, u"RowAdd",
                                u"Inserts a row before a row; tab characters stand between its texts",
                                {u"Text", u"rowno"})
            .method<&C::RowAddQuick>(72, u"RowAddQuick", u"Inserts a row and tells nobody, for filling",
                                     {u"Text", u"rowno"})
            .method<&C::RowCurrent>(73, u"RowCurrent", u"The current row, from 0; -1 in a grid without rows")
            .method<&C::RowDel>(74, u"RowDel",
                                u"Removes a row; the only one is emptied instead, and the grid hidden",
                                {u"rowno"})
            .method<&C::RowsCurrent>(75, u"RowsCurrent", u"Number of rows; 2 in a new grid")
            .method<&C::RowSetFocus>(76, u"RowSetFocus", u"Makes a row the current one", {u"rowno"})
            .method<&C::RowsRefreshColors>(
                77, u"RowsRefreshColors",
                u"Back colour of rows 0, 2, 4 and so on; the others get the window's. Suspends the drawing",
                {u"NewColor"})
            .method<&C::RowsSet>(78, u"RowsSet", u"Sets the number of rows", {u"rowno"})
            .method<&C::TopRowRead>(79, u"TopRowRead", u"The first row that shows")
            .method<&C::TopRowSet>(80, u"TopRowSet", u"Scrolls to a row", {u"NewValue"})

            .event<&C::CboBoxClick>(1, u"CboBoxClick",
                                    u"The list editor was pressed with the mouse, before its list opens")
            .event<&C::CboClick>(2, u"CboClick",
                                 u"A person chose an item of the list editor, which is still open")
            .event<&C::CellSelected>(3, u"CellSelected", u"A person made another cell the current one")
            .event<&C::Change>(
                4, u"Change",
                u"Cells, rows or columns have changed; once for an edit, a paste, or what is taken back")
            .event<&C::ChangeEdited>(5, u"ChangeEdited", u"An editor closes, or was asked to")
            .event<&C::ChangePost>(
                6, u"ChangePost",
                u"Cells have been edited, after Change; GridSetFocus sends a person back to a cell")
            .event<&C::Click>(7, u"Click", u"A cell was clicked, or an editor has opened")
            .event<&C::DblClick>(8, u"DblClick", u"A cell without an open editor was double-clicked")
            .event<&C::DblClickExt>(9, u"DblClickExt", u"The open editor was double-clicked")
            .event<&C::DelRow>(10, u"DelRow", u"A person deleted a row, after Change")
            .event<&C::KeyDown>(
                11, u"KeyDown",
                u"A key went down in the grid or an editor, which has done with it what editing does",
                {u"KeyCode", u"Shift"})
            .event<&C::KeyPress>(12, u"KeyPress", u"A character was typed in the grid or an editor",
                                 {u"KeyAscii"})
            .event<&C::KeyUp>(13, u"KeyUp", u"A key was released in the grid or an editor",
                              {u"KeyCode", u"Shift"})
            .event<&C::MouseDown>(14, u"MouseDown", u"A mouse button went down on the grid",
                                  {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseMove>(15, u"MouseMove", u"The mouse moved over the grid",
                                  {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::MouseUp>(16, u"MouseUp", u"A mouse button was released over the grid",
                                {u"Button", u"Shift", u"X", u"Y"})
            .event<&C::NewRow>(17, u"NewRow",
                               u"A person added a row, which is the current one; its number is 32767 at most",
                               {u"newno"})
            .event<&C::SelChange>(18, u"SelChange", u"A person selected other cells")
            .event<&C::OLEDragDrop>(19, u"OLEDragDrop", u"Something was dropped on the grid",
                                    {u"Data", u"Effect", u"Button", u"Shift", u"X", u"Y"})
            .event<&C::NewRowSelected>(20, u"NewRowSelected",
                                       u"A person made a cell of another row the current one")
            .event<&C::SortClick>(21, u"SortClick", u"The header bar was clicked")

            .persisted<&C::Font, &C::loadFont>({u"Font", AmbientFontDefault{}})
            .persisted<&C::BarHeader, &C::SetBarHeader>({u"BarHeaderVal", true})
            .persisted<&C::BarHeaderColorRefresh, &C::SetBarHeaderColorRefresh>(
                {u"BarHeaderColorRefresh", OleColour(SystemColour::buttonFace)})
            .persisted<&C::BorderStyle, &C::SetBorderStyle>({u"BorderStyle", int16_t{1}, {}, {}, asInteger})
            .build();
    return table;
}

}  // namespace obk
