// Orbek Controls 1.0.0, made from the tables that the type library is made from: no importer is needed.
// For each control: its interface, and a class with its members and events.
unit OBKCTRLS;

{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}

interface

uses
  {$IFDEF FPC}Windows, ActiveX, ComObj, SysUtils{$ELSE}Winapi.Windows, Winapi.ActiveX, System.Win.ComObj, System.SysUtils{$ENDIF};

const
  CLASS_UpDownTextBox: TGUID = '{D8CFD887-69FC-498C-8C1C-8A9F2D8431FB}';
  EVENTS_UpDownTextBox: TGUID = '{E1AFBD5F-531D-46E4-B6C7-10B8C0B80220}';
  CLASS_DateCalendar: TGUID = '{A8DAB03A-805D-413D-A7F0-CBE618158895}';
  EVENTS_DateCalendar: TGUID = '{2CD8B3EB-749E-46C5-A902-2E9F46913008}';
  CLASS_ButtonPalette: TGUID = '{5E8A5A70-BD73-405C-A794-F5E5AEE1B7FD}';
  EVENTS_ButtonPalette: TGUID = '{C7D4B36E-9DEB-4523-9071-03C34B343A21}';
  CLASS_ButtonArrow: TGUID = '{A1A4DFDD-1B38-4333-A49A-46DD103CA093}';
  EVENTS_ButtonArrow: TGUID = '{C88E1DB8-0294-4237-8942-AE5ACEE04711}';
  CLASS_GridEdit: TGUID = '{94ED36F5-D7CA-4FA1-A8BC-18E05B0314D6}';
  EVENTS_GridEdit: TGUID = '{4CFA70EB-49AD-4741-9D4B-E7790045292D}';
  CLASS_PageTab: TGUID = '{292DCDD0-338C-4D39-A021-D73219080498}';
  EVENTS_PageTab: TGUID = '{78B2A11B-B298-40BF-855B-8CC4431068F8}';
  CLASS_lns: TGUID = '{B2D1F051-31B4-412B-9845-C9CDA84ABA7C}';
  EVENTS_lns: TGUID = '{67184F1D-40C6-4F6F-830C-99C81C63E100}';

type
  // Kinds of a button; all look the same, and a form keeps which one it was given.
  ButtonTypesdd = LongInt;

const
  CButton = 1;
  CFlat = 2;
  CSoft = 3;
  CRaised = 4;
  CSunken = 5;
  CEtched = 6;
  CBump = 7;
  CFramed = 8;
  CBorderless = 9;
  CToolbar = 10;
  CHover = 11;
  CLink = 12;
  CSplit = 13;
  CDropDown = 14;

type
  // Palettes: columns by rows, or base colours by rows by columns of shades.
  enQUILLPalette = LongInt;

const
  QP8X2 = 0;
  QP9X3 = 1;
  QP8X8 = 2;
  QP16X8 = 3;
  QP24X8 = 4;
  QP24X10 = 5;
  QP8X4X4 = 6;
  QP8X8X6 = 7;
  QP12X6X6 = 8;
  QP16X8X6 = 9;
  QP24X8X6 = 10;
  QP32X8X6 = 11;

type
  // A numeric text box with a spinner.
  _UpDownTextBox = dispinterface
    ['{91F977B5-5907-4153-87E4-9D7C346B6951}']
    property Alignment: LongInt dispid 1;
    property AllowArrowKeys: WordBool dispid 2;
    property AllowDecpoint: WordBool dispid 3;
    property BackColor: LongInt dispid 4;
    property BorderStyle: LongInt dispid 5;
    property BuddyAlignment: LongInt dispid 6;
    function DecimalpointCheck(const Number: WideString): LongInt; dispid 7;
    property Enabled: WordBool dispid 8;
    property Font: IDispatch dispid 9;
    property ForeColor: LongInt dispid 10;
    property Interval: Double dispid 11;
    function KeyLock(const KeyAscii: LongInt; const Extra_Check: WordBool; var Extra_sText: WideString): Byte; dispid 12;
    property Max: LongInt dispid 13;
    property MaxLength: LongInt dispid 14;
    property Min: LongInt dispid 15;
    procedure Refresh; dispid 16;
    procedure RefreshFont; dispid 17;
    function ShiftColor(const Color: LongInt; const Value: LongInt; const IsXP: WordBool): LongInt; dispid 18;
    property SyncBuddy: WordBool dispid 19;
    property Text: WideString dispid 20;
    property ThousandsSeparator: WordBool dispid 21;
  end;

  // A date field with a menu of quick dates and a calendar to drop down.
  _DateCalendar = dispinterface
    ['{167D77C5-387C-47EF-B852-123E9DEB589E}']
    property BackColor: LongInt dispid 1;
    property bMOUSEPOSLOC: WordBool dispid 2;
    property BorderStyle: LongInt dispid 3;
    property bPOSITIONDEFAULT: WordBool dispid 4;
    procedure CalendarUpdate; dispid 5;
    property Enabled: WordBool dispid 6;
    property Font: IDispatch dispid 7;
    procedure HidePopUp; dispid 8;
    property hWnd: LongInt readonly dispid 9;
    property MousePosn: WordBool dispid 10;
    property PopupEnabled: WordBool dispid 11;
    procedure ShowPopUp; dispid 12;
    procedure subNEWDATE; dispid 13;
    property Text: WideString dispid 14;
    procedure UserControl_Click; dispid 15;
    procedure UserControl_ExitFocus; dispid 16;
    procedure UserControlMouseOut(var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single); dispid 17;
  end;

  // A button that shows a colour and drops down a colour palette.
  _ButtonPalette = dispinterface
    ['{E89BABC5-F4D4-4419-B4B2-90EFDC3CEC88}']
    property ActiveColor: LongInt readonly dispid 1;
    property ActiveText: WideString readonly dispid 2;
    property BackColor: LongInt dispid 3;
    property BackcolorCustom: WordBool dispid 4;
    property bMOUSEPOSLOC: WordBool dispid 5;
    property bPOSITIONDEFAULT: WordBool dispid 6;
    property ButtonType: ButtonTypesdd dispid 7;
    property Caption: WideString dispid 8;
    property Color: LongInt dispid 9;
    property Enabled: WordBool dispid 10;
    property FocusRect: WordBool dispid 11;
    property Font: IDispatch dispid 12;
    property ForeColor: LongInt dispid 13;
    procedure HidePopUp; dispid 14;
    property hWnd: LongInt readonly dispid 15;
    property MaskHLightColor: LongInt dispid 16;
    property MousePosn: WordBool dispid 17;
    property Palette: enQUILLPalette dispid 18;
    property Picture: IDispatch dispid 19;
    property PictureDisabled: IDispatch dispid 20;
    property PictureVisible: WordBool dispid 21;
    property PopupEnabled: WordBool dispid 22;
    procedure SetTheme; dispid 23;
    property ShowButtonColor: WordBool dispid 24;
    procedure ShowPopUp; dispid 25;
    property Text: WideString readonly dispid 26;
    procedure UserControl_Click; dispid 27;
    procedure UserControl_ExitFocus; dispid 28;
    procedure UserControlMouseOut(var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single); dispid 29;
  end;

  // A small arrow of fixed size.
  _ButtonArrow = dispinterface
    ['{D2C0CA84-65ED-4307-BC5A-86CFD6FAAD98}']
    procedure EnabledCol(const changeVal: WordBool); dispid 1;
  end;

  // An editable grid with captions, a type for each column and a text file of its own.
  _GridEdit = dispinterface
    ['{C2AE211F-FFBB-47DC-920A-6741C42AC40E}']
    property mstrDragInfo: WideString dispid 1;
    property blnPUBSHOWALARM: WordBool dispid 2;
    property AllowGridEdit: WordBool writeonly dispid 3;
    procedure barCol(var newcol: LongInt); dispid 4;
    procedure BarColText(var newcol: LongInt); dispid 5;
    property BarHeader: WordBool dispid 6;
    function BarHeaderCaptionRead(const colno: LongInt): WideString; dispid 7;
    procedure BarHeaderCaptionSet(const colno: LongInt; const sCaption: WideString); dispid 8;
    property BarHeaderColorRefresh: LongInt dispid 9;
    function BarHeaderColumn: LongInt; dispid 10;
    procedure BarHeaderRefresh; dispid 11;
    procedure BarHeaderSort; dispid 12;
    property BorderStyle: LongInt dispid 13;
    procedure BoxHide; dispid 14;
    procedure BoxSelect; dispid 15;
    procedure BoxShow; dispid 16;
    procedure cboLIST_KeyDown(var KeyCode: SmallInt; var Shift: SmallInt); dispid 17;
    procedure cboLIST_KeyUp(var KeyCode: SmallInt; var Shift: SmallInt); dispid 18;
    procedure CellChkSet(const Row: LongInt; const Col: LongInt; const Value: WideString); dispid 19;
    function CellColorReadx(const rowno: LongInt; const colno: LongInt): LongInt; dispid 20;
    procedure CellColorSetx(const Color: LongInt; const rowno: LongInt; const colno: LongInt); dispid 21;
    function CellCurrentHeight: LongInt; dispid 22;
    function CellCurrentLeft: LongInt; dispid 23;
    function CellCurrentTop: LongInt; dispid 24;
    function CellCurrentWidth: LongInt; dispid 25;
    procedure CellEnabledSet(const rowno: LongInt; const colno: LongInt; const StrikeThru: WordBool; const oleForeColor: LongInt); dispid 26;
    procedure CellFontSet(const rowno: LongInt; const colno: LongInt; const sFont: WideString; const Size: WideString; const Bold: WordBool; const StrikeThru: WordBool; const oleForeColor: LongInt); dispid 27;
    procedure CellFormatSet(const rowno: LongInt; const colno: LongInt; const sFont: WideString; const Size: WideString; const Bold: WordBool; const StrikeThru: WordBool; const oleForeColor: LongInt); dispid 28;
    function CellLeft: LongInt; dispid 29;
    procedure CellSetIcon(const colno: LongInt; const rowno: LongInt; const iconname: WideString); dispid 30;
    function CellTextRead(const rowno: LongInt; const colno: LongInt): WideString; dispid 31;
    procedure CellTextSet(const rowno: LongInt; const colno: LongInt; const Text: WideString); dispid 32;
    function CelWidth: LongInt; dispid 33;
    procedure Change; dispid 34;
    procedure ChangePost; dispid 35;
    procedure ColAdd(const ColWidth: Double); dispid 36;
    function ColCurrent: LongInt; dispid 37;
    procedure ColDel; dispid 38;
    function ColsCurrent: LongInt; dispid 39;
    procedure ColSetFocus(const colno: LongInt); dispid 40;
    procedure ColsSet(const colno: LongInt); dispid 41;
    function ColTypeRead(const colno: LongInt): WideString; dispid 42;
    procedure ColTypeSet(const colno: LongInt; const ColTypeVal: LongInt); dispid 43;
    procedure ColumnRefreshHeaders(const colno: LongInt); dispid 44;
    procedure ColumnVisible(const colno: LongInt; const cWidth: LongInt; const cVISIBLE: WordBool); dispid 45;
    procedure ColWidth(const colno: LongInt; const ColWidthVal: Double); dispid 46;
    procedure ComboAdd(const Item: WideString); dispid 47;
    procedure ComboClear; dispid 48;
    procedure ComboDel(const Index: LongInt); dispid 49;
    property Font: IDispatch dispid 50;
    procedure FontUpdate; dispid 51;
    procedure GridChange; dispid 52;
    procedure GridClear; dispid 53;
    procedure GridColr(var newcol: LongInt); dispid 54;
    procedure GridColSort(const colno: LongInt); dispid 55;
    procedure GridColSortInitialDate; dispid 56;
    procedure GridFocusShow; dispid 57;
    procedure GridHide; dispid 58;
    function GridLoad(const Path: WideString): WideString; dispid 59;
    procedure GridRedraw(const Status: WordBool); dispid 60;
    procedure GridRefresh; dispid 61;
    procedure GridReset; dispid 62;
    procedure GridSave(const Path: WideString; const Header: WideString); dispid 63;
    procedure GridSetFocus(const colno: LongInt; const rowno: LongInt); dispid 64;
    procedure GridShow; dispid 65;
    property hWnd: LongInt readonly dispid 66;
    function IsEven(const Number: LongInt): WordBool; dispid 67;
    function MouseCol: LongInt; dispid 68;
    property MousePosn: LongInt dispid 69;
    function MouseRow: LongInt; dispid 70;
    procedure RowAdd(const Text: WideString; const rowno: LongInt); dispid 71;
    procedure RowAddQuick(const Text: WideString; const rowno: LongInt); dispid 72;
    function RowCurrent: LongInt; dispid 73;
    procedure RowDel(const rowno: LongInt); dispid 74;
    function RowsCurrent: LongInt; dispid 75;
    procedure RowSetFocus(const rowno: LongInt); dispid 76;
    procedure RowsRefreshColors(var NewColor: LongInt); dispid 77;
    procedure RowsSet(const rowno: LongInt); dispid 78;
    function TopRowRead: LongInt; dispid 79;
    procedure TopRowSet(const NewValue: LongInt); dispid 80;
  end;

  // A strip of tabs to choose a page by.
  _PageTab = dispinterface
    ['{8D1FE7AB-5C8F-448D-BB53-7FC5F599F43F}']
    property strPUBSKINCOLORPAGE: WideString dispid 1;
    property lngSELECTEDPAGECOLOR: LongInt dispid 2;
    property ActiveTab: LongInt dispid 3;
    function ActiveTabNameGet(const Index: LongInt): WideString; dispid 4;
    procedure ActiveTabNameSet(const ActiveTabName: WideString); dispid 5;
    property ActiveTabs: WideString dispid 6;
    procedure AddTab(const sCaption: WideString); dispid 7;
    property BackColorPage: LongInt dispid 8;
    procedure ImageDis; dispid 9;
    procedure ImageHLight; dispid 10;
    procedure ImageSel; dispid 11;
    procedure ObjectMouseUp; dispid 12;
    property PageColor: LongInt dispid 13;
    property TextColor: LongInt dispid 14;
    property PageMainColor: LongInt dispid 15;
    procedure Refresh; dispid 16;
    procedure SetFont(const New_Font: WideString; const New_FontSize: WideString); dispid 17;
    property TabColor: WideString dispid 18;
  end;

  // An etched horizontal separator line.
  _lns = dispinterface
    ['{F81911B9-10C4-4B29-BF2D-8B903922F816}']
    procedure ColorRefresh; dispid 1;
  end;


type
  TConnectionCookie = {$IFDEF FPC}DWord{$ELSE}LongInt{$ENDIF};

  // Whichever handlers take nothing but the control that calls.
  TControlEvent = procedure(Sender: TObject) of object;

  // What all controls have: the object, and its events.
  TAutomationControl = class
  private
    FAutomation: IDispatch;
    FSink: IDispatch;
    FPoint: IConnectionPoint;
    FCookie: TConnectionCookie;
    procedure Listen(const Events: TGUID);
  protected
    procedure Raise_(Number: Integer; Arguments: Pointer; Count: Integer); virtual; abstract;
    class function ControlClass: TGUID; virtual; abstract;
    class function EventsInterface: TGUID; virtual; abstract;
  public
    // A control of its own, or one that exists already, for example on a form.
    constructor Create; overload;
    constructor Create(const Existing: IUnknown); overload;
    destructor Destroy; override;
    // The object itself, for a container to show.
    property Automation: IDispatch read FAutomation;
  end;

  TUpDownTextBoxKeyDown = procedure(Sender: TObject; var KeyCode: SmallInt; var Shift: SmallInt) of object;
  TUpDownTextBoxKeyPress = procedure(Sender: TObject; var KeyAscii: SmallInt) of object;
  TUpDownTextBoxKeyUp = procedure(Sender: TObject; var KeyCode: SmallInt; var Shift: SmallInt) of object;
  TUpDownTextBoxMouseDown = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;
  TUpDownTextBoxMouseMove = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;
  TUpDownTextBoxMouseUp = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;

  // A numeric text box with a spinner.
  TUpDownTextBox = class(TAutomationControl)
  private
    FOnChange: TControlEvent;
    FOnClick: TControlEvent;
    FOnDblClick: TControlEvent;
    FOnDownClick: TControlEvent;
    FOnKeyDown: TUpDownTextBoxKeyDown;
    FOnKeyPress: TUpDownTextBoxKeyPress;
    FOnKeyUp: TUpDownTextBoxKeyUp;
    FOnMouseDown: TUpDownTextBoxMouseDown;
    FOnMouseMove: TUpDownTextBoxMouseMove;
    FOnMouseUp: TUpDownTextBoxMouseUp;
    FOnUpClick: TControlEvent;
    function GetAlignment: LongInt;
    procedure SetAlignment(const Value: LongInt);
    function GetAllowArrowKeys: WordBool;
    procedure SetAllowArrowKeys(const Value: WordBool);
    function GetAllowDecpoint: WordBool;
    procedure SetAllowDecpoint(const Value: WordBool);
    function GetBackColor: LongInt;
    procedure SetBackColor(const Value: LongInt);
    function GetBorderStyle: LongInt;
    procedure SetBorderStyle(const Value: LongInt);
    function GetBuddyAlignment: LongInt;
    procedure SetBuddyAlignment(const Value: LongInt);
    function GetEnabled: WordBool;
    procedure SetEnabled(const Value: WordBool);
    function GetFont: IDispatch;
    procedure SetFont(const Value: IDispatch);
    function GetForeColor: LongInt;
    procedure SetForeColor(const Value: LongInt);
    function GetInterval: Double;
    procedure SetInterval(const Value: Double);
    function GetMax: LongInt;
    procedure SetMax(const Value: LongInt);
    function GetMaxLength: LongInt;
    procedure SetMaxLength(const Value: LongInt);
    function GetMin: LongInt;
    procedure SetMin(const Value: LongInt);
    function GetSyncBuddy: WordBool;
    procedure SetSyncBuddy(const Value: WordBool);
    function GetText: WideString;
    procedure SetText(const Value: WideString);
    function GetThousandsSeparator: WordBool;
    procedure SetThousandsSeparator(const Value: WordBool);
  protected
    procedure Raise_(Number: Integer; Arguments: Pointer; Count: Integer); override;
    class function ControlClass: TGUID; override;
    class function EventsInterface: TGUID; override;
  public
    // Alignment of the text: 0 left, 1 right, 2 centre.
    property Alignment: LongInt read GetAlignment write SetAlignment;
    // Whether the mouse wheel steps the value; the arrow keys always do.
    property AllowArrowKeys: WordBool read GetAllowArrowKeys write SetAllowArrowKeys;
    // Whether a decimal point may be typed; stepped values then show one decimal.
    property AllowDecpoint: WordBool read GetAllowDecpoint write SetAllowDecpoint;
    // Background colour; enabling the control sets it to the window background.
    property BackColor: LongInt read GetBackColor write SetBackColor;
    // Border of the field: 0 none, 1 a border.
    property BorderStyle: LongInt read GetBorderStyle write SetBorderStyle;
    // Side of the buttons: 0 right, 1 left.
    property BuddyAlignment: LongInt read GetBuddyAlignment write SetBuddyAlignment;
    // 1 when a text holds a full stop, else 0.
    function DecimalpointCheck(const Number: WideString): LongInt;
    // Whether the user can change the value.
    property Enabled: WordBool read GetEnabled write SetEnabled;
    // Font of the text.
    property Font: IDispatch read GetFont write SetFont;
    // Colour of the text.
    property ForeColor: LongInt read GetForeColor write SetForeColor;
    // Amount of one step; 0 on a freshly placed control.
    property Interval: Double read GetInterval write SetInterval;
    // The typed character's code, or 0 when a numeric field should reject it.
    function KeyLock(const KeyAscii: LongInt; const Extra_Check: WordBool; var Extra_sText: WideString): Byte;
    // Largest value.
    property Max: LongInt read GetMax write SetMax;
    // Most characters that the text may have; 0 is no limit.
    property MaxLength: LongInt read GetMaxLength write SetMaxLength;
    // Smallest value.
    property Min: LongInt read GetMin write SetMin;
    // Lays the control out again and redraws the spinner.
    procedure Refresh;
    // Takes over changes of the font and lays the control out again.
    procedure RefreshFont;
    // Lightens (positive value) or darkens (negative value) an RGB colour.
    function ShiftColor(const Color: LongInt; const Value: LongInt; const IsXP: WordBool): LongInt;
    // Held for hosts that keep a field and its spinner in step.
    property SyncBuddy: WordBool read GetSyncBuddy write SetSyncBuddy;
    // The value as text.
    property Text: WideString read GetText write SetText;
    // Held for hosts; a text with grouping commas reads as the number it shows.
    property ThousandsSeparator: WordBool read GetThousandsSeparator write SetThousandsSeparator;
    // The text has changed.
    property OnChange: TControlEvent read FOnChange write FOnChange;
    // The text box was clicked.
    property OnClick: TControlEvent read FOnClick write FOnClick;
    // The text box was double-clicked.
    property OnDblClick: TControlEvent read FOnDblClick write FOnDblClick;
    // The value is about to be increased.
    property OnDownClick: TControlEvent read FOnDownClick write FOnDownClick;
    // A key went down in the text box; a stepping key has stepped already.
    property OnKeyDown: TUpDownTextBoxKeyDown read FOnKeyDown write FOnKeyDown;
    // A character was typed; 0 when it was rejected.
    property OnKeyPress: TUpDownTextBoxKeyPress read FOnKeyPress write FOnKeyPress;
    // A key was released in the text box.
    property OnKeyUp: TUpDownTextBoxKeyUp read FOnKeyUp write FOnKeyUp;
    // A mouse button went down on the text box or the spinner.
    property OnMouseDown: TUpDownTextBoxMouseDown read FOnMouseDown write FOnMouseDown;
    // The mouse moved over the text box.
    property OnMouseMove: TUpDownTextBoxMouseMove read FOnMouseMove write FOnMouseMove;
    // A mouse button was released over the text box.
    property OnMouseUp: TUpDownTextBoxMouseUp read FOnMouseUp write FOnMouseUp;
    // The value is about to be decreased.
    property OnUpClick: TControlEvent read FOnUpClick write FOnUpClick;
  end;

  TDateCalendarKeyDown = procedure(Sender: TObject; var KeyCode: SmallInt; var Shift: SmallInt) of object;
  TDateCalendarKeyPress = procedure(Sender: TObject; var KeyAscii: SmallInt) of object;
  TDateCalendarKeyUp = procedure(Sender: TObject; var KeyCode: SmallInt; var Shift: SmallInt) of object;
  TDateCalendarMouseDown = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;
  TDateCalendarMouseMove = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;
  TDateCalendarMouseOut = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;
  TDateCalendarMouseUp = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;

  // A date field with a menu of quick dates and a calendar to drop down.
  TDateCalendar = class(TAutomationControl)
  private
    FOnChange: TControlEvent;
    FOnClick: TControlEvent;
    FOnDateUpdated: TControlEvent;
    FOnDblClick: TControlEvent;
    FOnFocusHidden: TControlEvent;
    FOnFocusLost: TControlEvent;
    FOnKeyDown: TDateCalendarKeyDown;
    FOnKeyPress: TDateCalendarKeyPress;
    FOnKeyUp: TDateCalendarKeyUp;
    FOnMouseDown: TDateCalendarMouseDown;
    FOnMouseMove: TDateCalendarMouseMove;
    FOnMouseOut: TDateCalendarMouseOut;
    FOnMouseUp: TDateCalendarMouseUp;
    FOnPopUp: TControlEvent;
    function GetBackColor: LongInt;
    procedure SetBackColor(const Value: LongInt);
    function GetbMOUSEPOSLOC: WordBool;
    procedure SetbMOUSEPOSLOC(const Value: WordBool);
    function GetBorderStyle: LongInt;
    procedure SetBorderStyle(const Value: LongInt);
    function GetbPOSITIONDEFAULT: WordBool;
    procedure SetbPOSITIONDEFAULT(const Value: WordBool);
    function GetEnabled: WordBool;
    procedure SetEnabled(const Value: WordBool);
    function GetFont: IDispatch;
    procedure SetFont(const Value: IDispatch);
    function GethWnd: LongInt;
    function GetMousePosn: WordBool;
    procedure SetMousePosn(const Value: WordBool);
    function GetPopupEnabled: WordBool;
    procedure SetPopupEnabled(const Value: WordBool);
    function GetText: WideString;
    procedure SetText(const Value: WideString);
  protected
    procedure Raise_(Number: Integer; Arguments: Pointer; Count: Integer); override;
    class function ControlClass: TGUID; override;
    class function EventsInterface: TGUID; override;
  public
    // Background colour of the field.
    property BackColor: LongInt read GetBackColor write SetBackColor;
    // Whether the mouse is over the field; the same as MousePosn.
    property bMOUSEPOSLOC: WordBool read GetbMOUSEPOSLOC write SetbMOUSEPOSLOC;
    // Border of the field: 0 none, 1 a border; not stored with a form.
    property BorderStyle: LongInt read GetBorderStyle write SetBorderStyle;
    // Whether the calendar drops down where there is room; else it goes up.
    property bPOSITIONDEFAULT: WordBool read GetbPOSITIONDEFAULT write SetbPOSITIONDEFAULT;
    // Fills the calendar for the month and year that are chosen in it.
    procedure CalendarUpdate;
    // Whether the user can change the date.
    property Enabled: WordBool read GetEnabled write SetEnabled;
    // Font of the date.
    property Font: IDispatch read GetFont write SetFont;
    // Hides the calendar; raises FocusHidden in any case.
    procedure HidePopUp;
    // Handle of the control's window.
    property hWnd: LongInt read GethWnd;
    // Whether the mouse is over the field.
    property MousePosn: WordBool read GetMousePosn write SetMousePosn;
    // Whether the calendar may open; else what would open it raises PopUp alone.
    property PopupEnabled: WordBool read GetPopupEnabled write SetPopupEnabled;
    // Shows the calendar on the month of the date; an empty date becomes today's.
    procedure ShowPopUp;
    // Brings the calendar to the month and year that the date's text mentions.
    procedure subNEWDATE;
    // The date as it is shown, "Sat 14 Nov 2026", with eight blanks after it; empty after loading.
    property Text: WideString read GetText write SetText;
    // Does what a click on the icon does.
    procedure UserControl_Click;
    // Raises FocusLost and MouseUp, as losing the focus does.
    procedure UserControl_ExitFocus;
    // Tracks the mouse into or out of the field.
    procedure UserControlMouseOut(var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single);
    // Never raised.
    property OnChange: TControlEvent read FOnChange write FOnChange;
    // The field was clicked.
    property OnClick: TControlEvent read FOnClick write FOnClick;
    // The user changed the date, or ended the editing of its text.
    property OnDateUpdated: TControlEvent read FOnDateUpdated write FOnDateUpdated;
    // The field was double-clicked.
    property OnDblClick: TControlEvent read FOnDblClick write FOnDblClick;
    // The calendar was hidden, or asked to be.
    property OnFocusHidden: TControlEvent read FOnFocusHidden write FOnFocusHidden;
    // The control lost the focus.
    property OnFocusLost: TControlEvent read FOnFocusLost write FOnFocusLost;
    // A key went down; it has had its effect on the calendar already.
    property OnKeyDown: TDateCalendarKeyDown read FOnKeyDown write FOnKeyDown;
    // Never raised.
    property OnKeyPress: TDateCalendarKeyPress read FOnKeyPress write FOnKeyPress;
    // A key was released.
    property OnKeyUp: TDateCalendarKeyUp read FOnKeyUp write FOnKeyUp;
    // A mouse button went down on the field.
    property OnMouseDown: TDateCalendarMouseDown read FOnMouseDown write FOnMouseDown;
    // The mouse moved over the field.
    property OnMouseMove: TDateCalendarMouseMove read FOnMouseMove write FOnMouseMove;
    // The mouse was tracked, inside the field or out of it.
    property OnMouseOut: TDateCalendarMouseOut read FOnMouseOut write FOnMouseOut;
    // A mouse button was released, or the focus went.
    property OnMouseUp: TDateCalendarMouseUp read FOnMouseUp write FOnMouseUp;
    // The field was clicked, or the calendar was asked for while PopupEnabled is False.
    property OnPopUp: TControlEvent read FOnPopUp write FOnPopUp;
  end;

  TButtonPaletteChange = procedure(Sender: TObject; var sCOLORCHANGED: LongInt) of object;
  TButtonPaletteChangeCustom = procedure(Sender: TObject; var sCOLORCHANGED: LongInt) of object;
  TButtonPaletteKeyDown = procedure(Sender: TObject; var KeyCode: SmallInt; var Shift: SmallInt) of object;
  TButtonPaletteKeyPress = procedure(Sender: TObject; var KeyAscii: SmallInt) of object;
  TButtonPaletteKeyUp = procedure(Sender: TObject; var KeyCode: SmallInt; var Shift: SmallInt) of object;
  TButtonPaletteMouseDown = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;
  TButtonPaletteMouseMove = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;
  TButtonPaletteMouseOut = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;
  TButtonPaletteMouseUp = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;

  // A button that shows a colour and drops down a colour palette.
  TButtonPalette = class(TAutomationControl)
  private
    FOnChange: TButtonPaletteChange;
    FOnChangeCustom: TButtonPaletteChangeCustom;
    FOnClick: TControlEvent;
    FOnDblClick: TControlEvent;
    FOnFocusHidden: TControlEvent;
    FOnFocusLost: TControlEvent;
    FOnKeyDown: TButtonPaletteKeyDown;
    FOnKeyPress: TButtonPaletteKeyPress;
    FOnKeyUp: TButtonPaletteKeyUp;
    FOnMouseDown: TButtonPaletteMouseDown;
    FOnMouseMove: TButtonPaletteMouseMove;
    FOnMouseOut: TButtonPaletteMouseOut;
    FOnMouseUp: TButtonPaletteMouseUp;
    FOnPopUp: TControlEvent;
    function GetActiveColor: LongInt;
    function GetActiveText: WideString;
    function GetBackColor: LongInt;
    procedure SetBackColor(const Value: LongInt);
    function GetBackcolorCustom: WordBool;
    procedure SetBackcolorCustom(const Value: WordBool);
    function GetbMOUSEPOSLOC: WordBool;
    procedure SetbMOUSEPOSLOC(const Value: WordBool);
    function GetbPOSITIONDEFAULT: WordBool;
    procedure SetbPOSITIONDEFAULT(const Value: WordBool);
    function GetButtonType: ButtonTypesdd;
    procedure SetButtonType(const Value: ButtonTypesdd);
    function GetCaption: WideString;
    procedure SetCaption(const Value: WideString);
    function GetColor: LongInt;
    procedure SetColor(const Value: LongInt);
    function GetEnabled: WordBool;
    procedure SetEnabled(const Value: WordBool);
    function GetFocusRect: WordBool;
    procedure SetFocusRect(const Value: WordBool);
    function GetFont: IDispatch;
    procedure SetFont(const Value: IDispatch);
    function GetForeColor: LongInt;
    procedure SetForeColor(const Value: LongInt);
    function GethWnd: LongInt;
    function GetMaskHLightColor: LongInt;
    procedure SetMaskHLightColor(const Value: LongInt);
    function GetMousePosn: WordBool;
    procedure SetMousePosn(const Value: WordBool);
    function GetPalette: enQUILLPalette;
    procedure SetPalette(const Value: enQUILLPalette);
    function GetPicture: IDispatch;
    procedure SetPicture(const Value: IDispatch);
    function GetPictureDisabled: IDispatch;
    procedure SetPictureDisabled(const Value: IDispatch);
    function GetPictureVisible: WordBool;
    procedure SetPictureVisible(const Value: WordBool);
    function GetPopupEnabled: WordBool;
    procedure SetPopupEnabled(const Value: WordBool);
    function GetShowButtonColor: WordBool;
    procedure SetShowButtonColor(const Value: WordBool);
    function GetText: WideString;
  protected
    procedure Raise_(Number: Integer; Arguments: Pointer; Count: Integer); override;
    class function ControlClass: TGUID; override;
    class function EventsInterface: TGUID; override;
  public
    // Colour of the swatch that was pressed or dragged over last.
    property ActiveColor: LongInt read GetActiveColor;
    // Name of the swatch that was pressed or dragged over last.
    property ActiveText: WideString read GetActiveText;
    // Background colour of the button.
    property BackColor: LongInt read GetBackColor write SetBackColor;
    // Whether BackColor shows, until the button is first repainted, in place of the system's button face.
    property BackcolorCustom: WordBool read GetBackcolorCustom write SetBackcolorCustom;
    // Whether the mouse is over the button; the same as MousePosn.
    property bMOUSEPOSLOC: WordBool read GetbMOUSEPOSLOC write SetbMOUSEPOSLOC;
    // Whether the panel drops down where there is room; else it goes up.
    property bPOSITIONDEFAULT: WordBool read GetbPOSITIONDEFAULT write SetbPOSITIONDEFAULT;
    // Kind of the button; kept, without effect on how it looks.
    property ButtonType: ButtonTypesdd read GetButtonType write SetButtonType;
    // Text on the button.
    property Caption: WideString read GetCaption write SetCaption;
    // Colour that the button shows.
    property Color: LongInt read GetColor write SetColor;
    // Whether the user can press the button.
    property Enabled: WordBool read GetEnabled write SetEnabled;
    // Whether the button with the focus shows a focus rectangle.
    property FocusRect: WordBool read GetFocusRect write SetFocusRect;
    // Font of the caption.
    property Font: IDispatch read GetFont write SetFont;
    // Colour of the caption.
    property ForeColor: LongInt read GetForeColor write SetForeColor;
    // Hides the panel; raises FocusHidden in any case.
    procedure HidePopUp;
    // Handle of the control's window.
    property hWnd: LongInt read GethWnd;
    // Colour that is left out of the pictures; not restored with a form.
    property MaskHLightColor: LongInt read GetMaskHLightColor write SetMaskHLightColor;
    // Whether the mouse is over the button.
    property MousePosn: WordBool read GetMousePosn write SetMousePosn;
    // Palette that the panel shows.
    property Palette: enQUILLPalette read GetPalette write SetPalette;
    // Picture on the button.
    property Picture: IDispatch read GetPicture write SetPicture;
    // Picture on the button while it is disabled.
    property PictureDisabled: IDispatch read GetPictureDisabled write SetPictureDisabled;
    // Whether the button shows its picture.
    property PictureVisible: WordBool read GetPictureVisible write SetPictureVisible;
    // Whether a click shows the panel; else it raises PopUp.
    property PopupEnabled: WordBool read GetPopupEnabled write SetPopupEnabled;
    // Applies the colours of the button face again.
    procedure SetTheme;
    // Whether the button shows its colour.
    property ShowButtonColor: WordBool read GetShowButtonColor write SetShowButtonColor;
    // Shows the panel.
    procedure ShowPopUp;
    // Name of the chosen swatch.
    property Text: WideString read GetText;
    // Does what a click does.
    procedure UserControl_Click;
    // Does what losing the focus does.
    procedure UserControl_ExitFocus;
    // Tracks the mouse into or out of the button.
    procedure UserControlMouseOut(var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single);
    // A swatch was pressed, dragged over or chosen.
    property OnChange: TButtonPaletteChange read FOnChange write FOnChange;
    // A colour came from the colour chooser.
    property OnChangeCustom: TButtonPaletteChangeCustom read FOnChangeCustom write FOnChangeCustom;
    // The button was clicked, or another swatch was chosen.
    property OnClick: TControlEvent read FOnClick write FOnClick;
    // The button was double-clicked.
    property OnDblClick: TControlEvent read FOnDblClick write FOnDblClick;
    // The panel was hidden, or asked to be.
    property OnFocusHidden: TControlEvent read FOnFocusHidden write FOnFocusHidden;
    // The control lost the focus.
    property OnFocusLost: TControlEvent read FOnFocusLost write FOnFocusLost;
    // A key went down; it has had its effect on the panel already.
    property OnKeyDown: TButtonPaletteKeyDown read FOnKeyDown write FOnKeyDown;
    // Never raised.
    property OnKeyPress: TButtonPaletteKeyPress read FOnKeyPress write FOnKeyPress;
    // A key was released.
    property OnKeyUp: TButtonPaletteKeyUp read FOnKeyUp write FOnKeyUp;
    // A mouse button, or Space, went down on the button.
    property OnMouseDown: TButtonPaletteMouseDown read FOnMouseDown write FOnMouseDown;
    // The mouse moved over the button.
    property OnMouseMove: TButtonPaletteMouseMove read FOnMouseMove write FOnMouseMove;
    // The mouse was tracked, inside the button or out of it.
    property OnMouseOut: TButtonPaletteMouseOut read FOnMouseOut write FOnMouseOut;
    // A mouse button, or Space, was released, or the focus went.
    property OnMouseUp: TButtonPaletteMouseUp read FOnMouseUp write FOnMouseUp;
    // The button was clicked while PopupEnabled is False.
    property OnPopUp: TControlEvent read FOnPopUp write FOnPopUp;
  end;


  // A small arrow of fixed size.
  TButtonArrow = class(TAutomationControl)
  private
  protected
    procedure Raise_(Number: Integer; Arguments: Pointer; Count: Integer); override;
    class function ControlClass: TGUID; override;
    class function EventsInterface: TGUID; override;
  public
    // Accepted and ignored.
    procedure EnabledCol(const changeVal: WordBool);
  end;

  TGridEditKeyDown = procedure(Sender: TObject; var KeyCode: SmallInt; var Shift: SmallInt) of object;
  TGridEditKeyPress = procedure(Sender: TObject; var KeyAscii: SmallInt) of object;
  TGridEditKeyUp = procedure(Sender: TObject; var KeyCode: SmallInt; var Shift: SmallInt) of object;
  TGridEditMouseDown = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;
  TGridEditMouseMove = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;
  TGridEditMouseUp = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;
  TGridEditNewRow = procedure(Sender: TObject; var newno: SmallInt) of object;
  TGridEditOLEDragDrop = procedure(Sender: TObject; var Data: IUnknown; var Effect: LongInt; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;

  // An editable grid with captions, a type for each column and a text file of its own.
  TGridEdit = class(TAutomationControl)
  private
    FOnCboBoxClick: TControlEvent;
    FOnCboClick: TControlEvent;
    FOnCellSelected: TControlEvent;
    FOnChange: TControlEvent;
    FOnChangeEdited: TControlEvent;
    FOnChangePost: TControlEvent;
    FOnClick: TControlEvent;
    FOnDblClick: TControlEvent;
    FOnDblClickExt: TControlEvent;
    FOnDelRow: TControlEvent;
    FOnKeyDown: TGridEditKeyDown;
    FOnKeyPress: TGridEditKeyPress;
    FOnKeyUp: TGridEditKeyUp;
    FOnMouseDown: TGridEditMouseDown;
    FOnMouseMove: TGridEditMouseMove;
    FOnMouseUp: TGridEditMouseUp;
    FOnNewRow: TGridEditNewRow;
    FOnSelChange: TControlEvent;
    FOnOLEDragDrop: TGridEditOLEDragDrop;
    FOnNewRowSelected: TControlEvent;
    FOnSortClick: TControlEvent;
    function GetmstrDragInfo: WideString;
    procedure SetmstrDragInfo(const Value: WideString);
    function GetblnPUBSHOWALARM: WordBool;
    procedure SetblnPUBSHOWALARM(const Value: WordBool);
    procedure SetAllowGridEdit(const Value: WordBool);
    function GetBarHeader: WordBool;
    procedure SetBarHeader(const Value: WordBool);
    function GetBarHeaderColorRefresh: LongInt;
    procedure SetBarHeaderColorRefresh(const Value: LongInt);
    function GetBorderStyle: LongInt;
    procedure SetBorderStyle(const Value: LongInt);
    function GetFont: IDispatch;
    procedure SetFont(const Value: IDispatch);
    function GethWnd: LongInt;
    function GetMousePosn: LongInt;
    procedure SetMousePosn(const Value: LongInt);
  protected
    procedure Raise_(Number: Integer; Arguments: Pointer; Count: Integer); override;
    class function ControlClass: TGUID; override;
    class function EventsInterface: TGUID; override;
  public
    // A text of the host's own, for what is dragged.
    property mstrDragInfo: WideString read GetmstrDragInfo write SetmstrDragInfo;
    // A flag of the host's own.
    property blnPUBSHOWALARM: WordBool read GetblnPUBSHOWALARM write SetblnPUBSHOWALARM;
    // Whether editors open over the cells, and keys add and delete rows; True at first.
    property AllowGridEdit: WordBool write SetAllowGridEdit;
    // Colours the header bar.
    procedure barCol(var newcol: LongInt);
    // Colours the captions of the header bar.
    procedure BarColText(var newcol: LongInt);
    // Show/hide the Grid Header.
    property BarHeader: WordBool read GetBarHeader write SetBarHeader;
    // The caption of a column; empty where there is none.
    function BarHeaderCaptionRead(const colno: LongInt): WideString;
    // Gives a column its caption.
    procedure BarHeaderCaptionSet(const colno: LongInt; const sCaption: WideString);
    // Colour of the header bar.
    property BarHeaderColorRefresh: LongInt read GetBarHeaderColorRefresh write SetBarHeaderColorRefresh;
    // The column at which the header bar was last pressed, or -1; the current column moves there.
    function BarHeaderColumn: LongInt;
    // Draws the header bar anew.
    procedure BarHeaderRefresh;
    // Sorts by the column at which the header bar was last pressed, downwards at first and then in turn.
    procedure BarHeaderSort;
    // Show/hide the Grid Border.
    property BorderStyle: LongInt read GetBorderStyle write SetBorderStyle;
    // Closes the editor and keeps what it holds; raises ChangeEdited in any case, and Change and ChangePost where an editor was open.
    procedure BoxHide;
    // Selects the text of the open editor.
    procedure BoxSelect;
    // Opens the editor of the current cell and gives it the keyboard; raises Click when it has opened.
    procedure BoxShow;
    // Does what a key going down in the list editor does; a key that was used comes back as 0.
    procedure cboLIST_KeyDown(var KeyCode: SmallInt; var Shift: SmallInt);
    // Does what a key released in the list editor does.
    procedure cboLIST_KeyUp(var KeyCode: SmallInt; var Shift: SmallInt);
    // Checks a cell for "a", "true" and 1, unchecks it for all other texts.
    procedure CellChkSet(const Row: LongInt; const Col: LongInt; const Value: WideString);
    // Makes a cell the current one; the back colour of the whole grid.
    function CellColorReadx(const rowno: LongInt; const colno: LongInt): LongInt;
    // Back colour of a cell, which becomes the current one.
    procedure CellColorSetx(const Color: LongInt; const rowno: LongInt; const colno: LongInt);
    // Height of the current cell in twips.
    function CellCurrentHeight: LongInt;
    // Left edge of the current cell, in twips from the grid's.
    function CellCurrentLeft: LongInt;
    // Top edge of the current cell, in twips from the grid's.
    function CellCurrentTop: LongInt;
    // Width of the current cell in twips.
    function CellCurrentWidth: LongInt;
    // Greys a cell out, or strikes it through.
    procedure CellEnabledSet(const rowno: LongInt; const colno: LongInt; const StrikeThru: WordBool = False; const oleForeColor: LongInt = -2147483632);
    // Font and fore colour of a cell; the size in points.
    procedure CellFontSet(const rowno: LongInt; const colno: LongInt; const sFont: WideString = ''; const Size: WideString = ''; const Bold: WordBool = False; const StrikeThru: WordBool = False; const oleForeColor: LongInt = -2147483632);
    // Font and fore colour of a cell, as CellFontSet.
    procedure CellFormatSet(const rowno: LongInt; const colno: LongInt; const sFont: WideString = ''; const Size: WideString = ''; const Bold: WordBool = False; const StrikeThru: WordBool = False; const oleForeColor: LongInt = -2147483632);
    // The same as CellCurrentLeft.
    function CellLeft: LongInt;
    // Shows a named icon in a cell.
    procedure CellSetIcon(const colno: LongInt; const rowno: LongInt; const iconname: WideString);
    // The text of a cell.
    function CellTextRead(const rowno: LongInt; const colno: LongInt): WideString;
    // Text of a cell, which becomes the current one.
    procedure CellTextSet(const rowno: LongInt; const colno: LongInt; const Text: WideString);
    // The same as CellCurrentWidth.
    function CelWidth: LongInt;
    // Raises the event Change.
    procedure Change;
    // Raises the event ChangePost.
    procedure ChangePost;
    // Adds a column after the last one, so many twips wide.
    procedure ColAdd(const ColWidth: Double);
    // The current column, from 0.
    function ColCurrent: LongInt;
    // Removes the last column; the only one is emptied instead.
    procedure ColDel;
    // Number of columns; 2 in a new grid.
    function ColsCurrent: LongInt;
    // Makes a column the current one.
    procedure ColSetFocus(const colno: LongInt);
    // Sets the number of columns, 1 to 10001; the texts of the first nine then stand to the left.
    procedure ColsSet(const colno: LongInt);
    // The type of a column as text; empty beyond column 10000.
    function ColTypeRead(const colno: LongInt): WideString;
    // Type of a column: 0 text, 1 date, 2 read-only, 3 check box, 4 list, 5 number, 6 time.
    procedure ColTypeSet(const colno: LongInt; const ColTypeVal: LongInt);
    // Places the captions over their columns.
    procedure ColumnRefreshHeaders(const colno: LongInt);
    // Shows a column, so many twips wide, or hides it.
    procedure ColumnVisible(const colno: LongInt; const cWidth: LongInt; const cVISIBLE: WordBool);
    // Width of a column in twips; 200 and less are ignored.
    procedure ColWidth(const colno: LongInt; const ColWidthVal: Double);
    // Adds an item to the list of the list editor, which all columns of lists share.
    procedure ComboAdd(const Item: WideString);
    // Empties the list of the list editor.
    procedure ComboClear;
    // Removes an item from the list of the list editor.
    procedure ComboDel(const Index: LongInt);
    // Font of the cells and captions.
    property Font: IDispatch read GetFont write SetFont;
    // Gives the control's font to the grid, the header bar and the editors.
    procedure FontUpdate;
    // Does nothing; for hosts that call it.
    procedure GridChange;
    // Empties all cells; rows and columns stay.
    procedure GridClear;
    // Colour of the grid's lines and of what is selected.
    procedure GridColr(var newcol: LongInt);
    // Sorts the rows by the current column, downwards and upwards in turn, if the grid has the column colno.
    procedure GridColSort(const colno: LongInt);
    // Sorts the rows by the fifth column, downwards.
    procedure GridColSortInitialDate;
    // Gives the grid the keyboard.
    procedure GridFocusShow;
    // Hides the grid.
    procedure GridHide;
    // Loads rows and texts from a text file; its caption.
    function GridLoad(const Path: WideString): WideString;
    // False suspends the drawing, True resumes it.
    procedure GridRedraw(const Status: WordBool);
    // Lays the control out again.
    procedure GridRefresh;
    // Hides and empties the grid, and leaves it one row.
    procedure GridReset;
    // Saves all texts in a text file, with a caption.
    procedure GridSave(const Path: WideString; const Header: WideString);
    // Makes a cell the current one and opens its editor.
    procedure GridSetFocus(const colno: LongInt; const rowno: LongInt);
    // Shows the grid.
    procedure GridShow;
    // Handle of the control's window.
    property hWnd: LongInt read GethWnd;
    // Whether a number is even.
    function IsEven(const Number: LongInt): WordBool;
    // The column below the mouse; -1 for none.
    function MouseCol: LongInt;
    // A number of the host's own, for where the mouse is.
    property MousePosn: LongInt read GetMousePosn write SetMousePosn;
    // The row below the mouse; -1 for none.
    function MouseRow: LongInt;
    // Inserts a row before a row; tab characters stand between its texts.
    procedure RowAdd(const Text: WideString; const rowno: LongInt);
    // Inserts a row and tells nobody, for filling.
    procedure RowAddQuick(const Text: WideString; const rowno: LongInt);
    // The current row, from 0; -1 in a grid without rows.
    function RowCurrent: LongInt;
    // Removes a row; the only one is emptied instead, and the grid hidden.
    procedure RowDel(const rowno: LongInt);
    // Number of rows; 2 in a new grid.
    function RowsCurrent: LongInt;
    // Makes a row the current one.
    procedure RowSetFocus(const rowno: LongInt);
    // Back colour of rows 0, 2, 4 and so on; the others get the window's. Suspends the drawing.
    procedure RowsRefreshColors(var NewColor: LongInt);
    // Sets the number of rows.
    procedure RowsSet(const rowno: LongInt);
    // The first row that shows.
    function TopRowRead: LongInt;
    // Scrolls to a row.
    procedure TopRowSet(const NewValue: LongInt);
    // The list editor was pressed with the mouse, before its list opens.
    property OnCboBoxClick: TControlEvent read FOnCboBoxClick write FOnCboBoxClick;
    // A person chose an item of the list editor, which is still open.
    property OnCboClick: TControlEvent read FOnCboClick write FOnCboClick;
    // A person made another cell the current one.
    property OnCellSelected: TControlEvent read FOnCellSelected write FOnCellSelected;
    // Cells, rows or columns have changed; once for an edit, a paste, or what is taken back.
    property OnChange: TControlEvent read FOnChange write FOnChange;
    // An editor closes, or was asked to.
    property OnChangeEdited: TControlEvent read FOnChangeEdited write FOnChangeEdited;
    // Cells have been edited, after Change; GridSetFocus sends a person back to a cell.
    property OnChangePost: TControlEvent read FOnChangePost write FOnChangePost;
    // A cell was clicked, or an editor has opened.
    property OnClick: TControlEvent read FOnClick write FOnClick;
    // A cell without an open editor was double-clicked.
    property OnDblClick: TControlEvent read FOnDblClick write FOnDblClick;
    // The open editor was double-clicked.
    property OnDblClickExt: TControlEvent read FOnDblClickExt write FOnDblClickExt;
    // A person deleted a row, after Change.
    property OnDelRow: TControlEvent read FOnDelRow write FOnDelRow;
    // A key went down in the grid or an editor, which has done with it what editing does.
    property OnKeyDown: TGridEditKeyDown read FOnKeyDown write FOnKeyDown;
    // A character was typed in the grid or an editor.
    property OnKeyPress: TGridEditKeyPress read FOnKeyPress write FOnKeyPress;
    // A key was released in the grid or an editor.
    property OnKeyUp: TGridEditKeyUp read FOnKeyUp write FOnKeyUp;
    // A mouse button went down on the grid.
    property OnMouseDown: TGridEditMouseDown read FOnMouseDown write FOnMouseDown;
    // The mouse moved over the grid.
    property OnMouseMove: TGridEditMouseMove read FOnMouseMove write FOnMouseMove;
    // A mouse button was released over the grid.
    property OnMouseUp: TGridEditMouseUp read FOnMouseUp write FOnMouseUp;
    // A person added a row, which is the current one; its number is 32767 at most.
    property OnNewRow: TGridEditNewRow read FOnNewRow write FOnNewRow;
    // A person selected other cells.
    property OnSelChange: TControlEvent read FOnSelChange write FOnSelChange;
    // Something was dropped on the grid.
    property OnOLEDragDrop: TGridEditOLEDragDrop read FOnOLEDragDrop write FOnOLEDragDrop;
    // A person made a cell of another row the current one.
    property OnNewRowSelected: TControlEvent read FOnNewRowSelected write FOnNewRowSelected;
    // The header bar was clicked.
    property OnSortClick: TControlEvent read FOnSortClick write FOnSortClick;
  end;

  TPageTabClick = procedure(Sender: TObject; var TName: WideString) of object;
  TPageTabMouseDown = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single; var ActiveTab: WideString) of object;
  TPageTabMouseDownback = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single; var ActiveTab: WideString) of object;
  TPageTabMouseMove = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;
  TPageTabMouseUp = procedure(Sender: TObject; var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single) of object;

  // A strip of tabs to choose a page by.
  TPageTab = class(TAutomationControl)
  private
    FOnClick: TPageTabClick;
    FOndlbClick: TControlEvent;
    FOnMouseDown: TPageTabMouseDown;
    FOnMouseDownback: TPageTabMouseDownback;
    FOnMouseMove: TPageTabMouseMove;
    FOnMouseUp: TPageTabMouseUp;
    FOnShow: TControlEvent;
    function GetstrPUBSKINCOLORPAGE: WideString;
    procedure SetstrPUBSKINCOLORPAGE(const Value: WideString);
    function GetlngSELECTEDPAGECOLOR: LongInt;
    procedure SetlngSELECTEDPAGECOLOR(const Value: LongInt);
    function GetActiveTab: LongInt;
    procedure SetActiveTab(const Value: LongInt);
    function GetActiveTabs: WideString;
    procedure SetActiveTabs(const Value: WideString);
    function GetBackColorPage: LongInt;
    procedure SetBackColorPage(const Value: LongInt);
    function GetPageColor: LongInt;
    procedure SetPageColor(const Value: LongInt);
    function GetTextColor: LongInt;
    procedure SetTextColor(const Value: LongInt);
    function GetPageMainColor: LongInt;
    procedure SetPageMainColor(const Value: LongInt);
    function GetTabColor: WideString;
    procedure SetTabColor(const Value: WideString);
  protected
    procedure Raise_(Number: Integer; Arguments: Pointer; Count: Integer); override;
    class function ControlClass: TGUID; override;
    class function EventsInterface: TGUID; override;
  public
    // Page colours of the tabs, as decimal numbers with vertical bars between them; seen when the strip is laid out anew.
    property strPUBSKINCOLORPAGE: WideString read GetstrPUBSKINCOLORPAGE write SetstrPUBSKINCOLORPAGE;
    // The active tab's number in strPUBSKINCOLORPAGE, in which its page is drawn; 0: drawn in PageColor.
    property lngSELECTEDPAGECOLOR: LongInt read GetlngSELECTEDPAGECOLOR write SetlngSELECTEDPAGECOLOR;
    // Index of the active tab, from 1; 0: none. An index without a tab is ignored. The value last read is selected again when the tabs are made anew.
    property ActiveTab: LongInt read GetActiveTab write SetActiveTab;
    // The caption of a tab; empty where there is none.
    function ActiveTabNameGet(const Index: LongInt): WideString;
    // Makes the last tab with exactly this caption the active one; an empty name none.
    procedure ActiveTabNameSet(const ActiveTabName: WideString);
    // The captions with commas between them; putting them makes the tabs anew. Lines count as tabs, too, with captions "0". Tabs of AddTab are not in it.
    property ActiveTabs: WideString read GetActiveTabs write SetActiveTabs;
    // Appends a tab and makes it the active one; an empty caption becomes "Tab" and its index.
    procedure AddTab(const sCaption: WideString);
    // Colour of the strip behind the tabs.
    property BackColorPage: LongInt read GetBackColorPage write SetBackColorPage;
    // Shows all tabs disabled, until a tab is selected or another look is asked for.
    procedure ImageDis;
    // Shows the active tab highlighted, until a tab is selected or another look is asked for.
    procedure ImageHLight;
    // Shows the tabs as usual, the active one selected.
    procedure ImageSel;
    // Shows the strip as if the mouse were elsewhere.
    procedure ObjectMouseUp;
    // Colour of the shown page. Laying out anew, after loading as well, puts the active tab's page colour or PageMainColor here: what is stored is what was shown.
    property PageColor: LongInt read GetPageColor write SetPageColor;
    // Colour of the captions.
    property TextColor: LongInt read GetTextColor write SetTextColor;
    // Page colour of tabs without one of their own; not stored with a form.
    property PageMainColor: LongInt read GetPageMainColor write SetPageMainColor;
    // Repaints the strip.
    procedure Refresh;
    // Font name and size in points of all captions, and of those to come.
    procedure SetFont(const New_Font: WideString; const New_FontSize: WideString);
    // Kept for the host; nothing is drawn in it.
    property TabColor: WideString read GetTabColor write SetTabColor;
    // A person chose a tab; its caption.
    property OnClick: TPageTabClick read FOnClick write FOnClick;
    // The strip was double-clicked.
    property OndlbClick: TControlEvent read FOndlbClick write FOndlbClick;
    // A mouse button went down on a tab; X and Y in twips, the active tab's caption.
    property OnMouseDown: TPageTabMouseDown read FOnMouseDown write FOnMouseDown;
    // A mouse button went down on the strip beside the tabs.
    property OnMouseDownback: TPageTabMouseDownback read FOnMouseDownback write FOnMouseDownback;
    // The mouse moved over the strip.
    property OnMouseMove: TPageTabMouseMove read FOnMouseMove write FOnMouseMove;
    // A mouse button was released.
    property OnMouseUp: TPageTabMouseUp read FOnMouseUp write FOnMouseUp;
    // Follows Click: the page of the active tab is to be shown.
    property OnShow: TControlEvent read FOnShow write FOnShow;
  end;


  // An etched horizontal separator line.
  Tlns = class(TAutomationControl)
  private
  protected
    procedure Raise_(Number: Integer; Arguments: Pointer; Count: Integer); override;
    class function ControlClass: TGUID; override;
    class function EventsInterface: TGUID; override;
  public
    // Tints both lines from the base colour.
    procedure ColorRefresh;
  end;

implementation

type
  // One argument as automation passes it: what kind it is, and where it is or what it is.
  PArgument = ^TArgument;
  TArgument = record
    Kind: Word;
    Reserved: array[0..2] of Word;
    Data, More: Pointer;
  end;
  PUnknownReference = ^IUnknown;

  TSink = class(TInterfacedObject, IUnknown, IDispatch)
  private
    FOwner: TAutomationControl;
    FEvents: TGUID;
  public
    constructor Create(AOwner: TAutomationControl; const Events: TGUID);
    function QueryInterface({$IFDEF FPC}constref{$ELSE}const{$ENDIF} IID: TGUID; out Obj): HResult; reintroduce; stdcall;
    function GetTypeInfoCount(out Count: LongInt): HResult; stdcall;
    function GetTypeInfo(Index, LocaleID: LongInt; out TypeInfo): HResult; stdcall;
    function GetIDsOfNames(const IID: TGUID; Names: Pointer; NameCount, LocaleID: LongInt;
      DispIDs: Pointer): HResult; stdcall;
    function Invoke(DispID: LongInt; const IID: TGUID; LocaleID: LongInt; Flags: Word; var Params;
      VarResult, ExcepInfo, ArgErr: Pointer): HResult; stdcall;
    function IDispatch.QueryInterface = QueryInterface;
    function IUnknown.QueryInterface = QueryInterface;
  end;

constructor TSink.Create(AOwner: TAutomationControl; const Events: TGUID);
begin
  inherited Create;
  FOwner := AOwner;
  FEvents := Events;
end;

function TSink.QueryInterface({$IFDEF FPC}constref{$ELSE}const{$ENDIF} IID: TGUID; out Obj): HResult; stdcall;
begin
  if IsEqualGUID(IID, FEvents) then
  begin
    IDispatch(Obj) := Self;
    Result := S_OK;
  end
  else
    Result := inherited QueryInterface(IID, Obj);
end;

function TSink.GetTypeInfoCount(out Count: LongInt): HResult; stdcall;
begin
  Count := 0;
  Result := S_OK;
end;

function TSink.GetTypeInfo(Index, LocaleID: LongInt; out TypeInfo): HResult; stdcall;
begin
  Pointer(TypeInfo) := nil;
  Result := E_NOTIMPL;
end;

function TSink.GetIDsOfNames(const IID: TGUID; Names: Pointer; NameCount, LocaleID: LongInt;
  DispIDs: Pointer): HResult; stdcall;
begin
  Result := E_NOTIMPL;
end;

function TSink.Invoke(DispID: LongInt; const IID: TGUID; LocaleID: LongInt; Flags: Word; var Params;
  VarResult, ExcepInfo, ArgErr: Pointer): HResult; stdcall;
begin
  Result := S_OK;
  if FOwner = nil then
    Exit;
  // No exception leaves a call from a control.
  try
    FOwner.Raise_(DispID, TDispParams(Params).rgvarg, TDispParams(Params).cArgs);
  except
    Result := E_FAIL;
  end;
end;

constructor TAutomationControl.Create;
begin
  Create(CreateComObject(ControlClass));
end;

constructor TAutomationControl.Create(const Existing: IUnknown);
begin
  inherited Create;
  FAutomation := Existing as IDispatch;
  Listen(EventsInterface);
end;

destructor TAutomationControl.Destroy;
begin
  if FPoint <> nil then
  begin
    (FSink as TSink).FOwner := nil;
    FPoint.Unadvise(FCookie);
  end;
  inherited Destroy;
end;

procedure TAutomationControl.Listen(const Events: TGUID);
begin
  OleCheck((FAutomation as IConnectionPointContainer).FindConnectionPoint(Events, FPoint));
  FSink := TSink.Create(Self, Events);
  OleCheck(FPoint.Advise(FSink, FCookie));
end;

// An argument by its place, counted from the first; automation has them last first.
function ArgumentAt(Arguments: Pointer; Count, Place: Integer): PArgument;
begin
  Result := Arguments;
  Inc(Result, Count - 1 - Place);
end;

// Where the value of an argument is.
function DataOf(Arguments: Pointer; Count, Place: Integer): Pointer;
const
  ByReference = $4000;
var
  Argument: PArgument;
begin
  Argument := ArgumentAt(Arguments, Count, Place);
  if (Argument^.Kind and ByReference) <> 0 then
    Result := Argument^.Data
  else
    Result := @Argument^.Data;
end;

class function TUpDownTextBox.ControlClass: TGUID;
begin
  Result := CLASS_UpDownTextBox;
end;

class function TUpDownTextBox.EventsInterface: TGUID;
begin
  Result := EVENTS_UpDownTextBox;
end;

function TUpDownTextBox.GetAlignment: LongInt;
begin
  Result := _UpDownTextBox(Automation).Alignment;
end;

procedure TUpDownTextBox.SetAlignment(const Value: LongInt);
begin
  _UpDownTextBox(Automation).Alignment := Value;
end;

function TUpDownTextBox.GetAllowArrowKeys: WordBool;
begin
  Result := _UpDownTextBox(Automation).AllowArrowKeys;
end;

procedure TUpDownTextBox.SetAllowArrowKeys(const Value: WordBool);
begin
  _UpDownTextBox(Automation).AllowArrowKeys := Value;
end;

function TUpDownTextBox.GetAllowDecpoint: WordBool;
begin
  Result := _UpDownTextBox(Automation).AllowDecpoint;
end;

procedure TUpDownTextBox.SetAllowDecpoint(const Value: WordBool);
begin
  _UpDownTextBox(Automation).AllowDecpoint := Value;
end;

function TUpDownTextBox.GetBackColor: LongInt;
begin
  Result := _UpDownTextBox(Automation).BackColor;
end;

procedure TUpDownTextBox.SetBackColor(const Value: LongInt);
begin
  _UpDownTextBox(Automation).BackColor := Value;
end;

function TUpDownTextBox.GetBorderStyle: LongInt;
begin
  Result := _UpDownTextBox(Automation).BorderStyle;
end;

procedure TUpDownTextBox.SetBorderStyle(const Value: LongInt);
begin
  _UpDownTextBox(Automation).BorderStyle := Value;
end;

function TUpDownTextBox.GetBuddyAlignment: LongInt;
begin
  Result := _UpDownTextBox(Automation).BuddyAlignment;
end;

procedure TUpDownTextBox.SetBuddyAlignment(const Value: LongInt);
begin
  _UpDownTextBox(Automation).BuddyAlignment := Value;
end;

function TUpDownTextBox.DecimalpointCheck(const Number: WideString): LongInt;
begin
  Result := _UpDownTextBox(Automation).DecimalpointCheck(Number);
end;

function TUpDownTextBox.GetEnabled: WordBool;
begin
  Result := _UpDownTextBox(Automation).Enabled;
end;

procedure TUpDownTextBox.SetEnabled(const Value: WordBool);
begin
  _UpDownTextBox(Automation).Enabled := Value;
end;

function TUpDownTextBox.GetFont: IDispatch;
begin
  Result := _UpDownTextBox(Automation).Font;
end;

procedure TUpDownTextBox.SetFont(const Value: IDispatch);
begin
  _UpDownTextBox(Automation).Font := Value;
end;

function TUpDownTextBox.GetForeColor: LongInt;
begin
  Result := _UpDownTextBox(Automation).ForeColor;
end;

procedure TUpDownTextBox.SetForeColor(const Value: LongInt);
begin
  _UpDownTextBox(Automation).ForeColor := Value;
end;

function TUpDownTextBox.GetInterval: Double;
begin
  Result := _UpDownTextBox(Automation).Interval;
end;

procedure TUpDownTextBox.SetInterval(const Value: Double);
begin
  _UpDownTextBox(Automation).Interval := Value;
end;

function TUpDownTextBox.KeyLock(const KeyAscii: LongInt; const Extra_Check: WordBool; var Extra_sText: WideString): Byte;
begin
  Result := _UpDownTextBox(Automation).KeyLock(KeyAscii, Extra_Check, Extra_sText);
end;

function TUpDownTextBox.GetMax: LongInt;
begin
  Result := _UpDownTextBox(Automation).Max;
end;

procedure TUpDownTextBox.SetMax(const Value: LongInt);
begin
  _UpDownTextBox(Automation).Max := Value;
end;

function TUpDownTextBox.GetMaxLength: LongInt;
begin
  Result := _UpDownTextBox(Automation).MaxLength;
end;

procedure TUpDownTextBox.SetMaxLength(const Value: LongInt);
begin
  _UpDownTextBox(Automation).MaxLength := Value;
end;

function TUpDownTextBox.GetMin: LongInt;
begin
  Result := _UpDownTextBox(Automation).Min;
end;

procedure TUpDownTextBox.SetMin(const Value: LongInt);
begin
  _UpDownTextBox(Automation).Min := Value;
end;

procedure TUpDownTextBox.Refresh;
begin
  _UpDownTextBox(Automation).Refresh;
end;

procedure TUpDownTextBox.RefreshFont;
begin
  _UpDownTextBox(Automation).RefreshFont;
end;

function TUpDownTextBox.ShiftColor(const Color: LongInt; const Value: LongInt; const IsXP: WordBool): LongInt;
begin
  Result := _UpDownTextBox(Automation).ShiftColor(Color, Value, IsXP);
end;

function TUpDownTextBox.GetSyncBuddy: WordBool;
begin
  Result := _UpDownTextBox(Automation).SyncBuddy;
end;

procedure TUpDownTextBox.SetSyncBuddy(const Value: WordBool);
begin
  _UpDownTextBox(Automation).SyncBuddy := Value;
end;

function TUpDownTextBox.GetText: WideString;
begin
  Result := _UpDownTextBox(Automation).Text;
end;

procedure TUpDownTextBox.SetText(const Value: WideString);
begin
  _UpDownTextBox(Automation).Text := Value;
end;

function TUpDownTextBox.GetThousandsSeparator: WordBool;
begin
  Result := _UpDownTextBox(Automation).ThousandsSeparator;
end;

procedure TUpDownTextBox.SetThousandsSeparator(const Value: WordBool);
begin
  _UpDownTextBox(Automation).ThousandsSeparator := Value;
end;

procedure TUpDownTextBox.Raise_(Number: Integer; Arguments: Pointer; Count: Integer);
begin
  case Number of
    1: if Assigned(FOnChange) and (Count = 0) then
      FOnChange(Self);
    2: if Assigned(FOnClick) and (Count = 0) then
      FOnClick(Self);
    3: if Assigned(FOnDblClick) and (Count = 0) then
      FOnDblClick(Self);
    4: if Assigned(FOnDownClick) and (Count = 0) then
      FOnDownClick(Self);
    5: if Assigned(FOnKeyDown) and (Count = 2) then
      FOnKeyDown(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^);
    6: if Assigned(FOnKeyPress) and (Count = 1) then
      FOnKeyPress(Self, PSmallInt(DataOf(Arguments, Count, 0))^);
    7: if Assigned(FOnKeyUp) and (Count = 2) then
      FOnKeyUp(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^);
    8: if Assigned(FOnMouseDown) and (Count = 4) then
      FOnMouseDown(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    9: if Assigned(FOnMouseMove) and (Count = 4) then
      FOnMouseMove(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    10: if Assigned(FOnMouseUp) and (Count = 4) then
      FOnMouseUp(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    11: if Assigned(FOnUpClick) and (Count = 0) then
      FOnUpClick(Self);
  end;
end;

class function TDateCalendar.ControlClass: TGUID;
begin
  Result := CLASS_DateCalendar;
end;

class function TDateCalendar.EventsInterface: TGUID;
begin
  Result := EVENTS_DateCalendar;
end;

function TDateCalendar.GetBackColor: LongInt;
begin
  Result := _DateCalendar(Automation).BackColor;
end;

procedure TDateCalendar.SetBackColor(const Value: LongInt);
begin
  _DateCalendar(Automation).BackColor := Value;
end;

function TDateCalendar.GetbMOUSEPOSLOC: WordBool;
begin
  Result := _DateCalendar(Automation).bMOUSEPOSLOC;
end;

procedure TDateCalendar.SetbMOUSEPOSLOC(const Value: WordBool);
begin
  _DateCalendar(Automation).bMOUSEPOSLOC := Value;
end;

function TDateCalendar.GetBorderStyle: LongInt;
begin
  Result := _DateCalendar(Automation).BorderStyle;
end;

procedure TDateCalendar.SetBorderStyle(const Value: LongInt);
begin
  _DateCalendar(Automation).BorderStyle := Value;
end;

function TDateCalendar.GetbPOSITIONDEFAULT: WordBool;
begin
  Result := _DateCalendar(Automation).bPOSITIONDEFAULT;
end;

procedure TDateCalendar.SetbPOSITIONDEFAULT(const Value: WordBool);
begin
  _DateCalendar(Automation).bPOSITIONDEFAULT := Value;
end;

procedure TDateCalendar.CalendarUpdate;
begin
  _DateCalendar(Automation).CalendarUpdate;
end;

function TDateCalendar.GetEnabled: WordBool;
begin
  Result := _DateCalendar(Automation).Enabled;
end;

procedure TDateCalendar.SetEnabled(const Value: WordBool);
begin
  _DateCalendar(Automation).Enabled := Value;
end;

function TDateCalendar.GetFont: IDispatch;
begin
  Result := _DateCalendar(Automation).Font;
end;

procedure TDateCalendar.SetFont(const Value: IDispatch);
begin
  _DateCalendar(Automation).Font := Value;
end;

procedure TDateCalendar.HidePopUp;
begin
  _DateCalendar(Automation).HidePopUp;
end;

function TDateCalendar.GethWnd: LongInt;
begin
  Result := _DateCalendar(Automation).hWnd;
end;

function TDateCalendar.GetMousePosn: WordBool;
begin
  Result := _DateCalendar(Automation).MousePosn;
end;

procedure TDateCalendar.SetMousePosn(const Value: WordBool);
begin
  _DateCalendar(Automation).MousePosn := Value;
end;

function TDateCalendar.GetPopupEnabled: WordBool;
begin
  Result := _DateCalendar(Automation).PopupEnabled;
end;

procedure TDateCalendar.SetPopupEnabled(const Value: WordBool);
begin
  _DateCalendar(Automation).PopupEnabled := Value;
end;

procedure TDateCalendar.ShowPopUp;
begin
  _DateCalendar(Automation).ShowPopUp;
end;

procedure TDateCalendar.subNEWDATE;
begin
  _DateCalendar(Automation).subNEWDATE;
end;

function TDateCalendar.GetText: WideString;
begin
  Result := _DateCalendar(Automation).Text;
end;

procedure TDateCalendar.SetText(const Value: WideString);
begin
  _DateCalendar(Automation).Text := Value;
end;

procedure TDateCalendar.UserControl_Click;
begin
  _DateCalendar(Automation).UserControl_Click;
end;

procedure TDateCalendar.UserControl_ExitFocus;
begin
  _DateCalendar(Automation).UserControl_ExitFocus;
end;

procedure TDateCalendar.UserControlMouseOut(var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single);
begin
  _DateCalendar(Automation).UserControlMouseOut(Button, Shift, X, Y);
end;

procedure TDateCalendar.Raise_(Number: Integer; Arguments: Pointer; Count: Integer);
begin
  case Number of
    1: if Assigned(FOnChange) and (Count = 0) then
      FOnChange(Self);
    2: if Assigned(FOnClick) and (Count = 0) then
      FOnClick(Self);
    3: if Assigned(FOnDateUpdated) and (Count = 0) then
      FOnDateUpdated(Self);
    4: if Assigned(FOnDblClick) and (Count = 0) then
      FOnDblClick(Self);
    5: if Assigned(FOnFocusHidden) and (Count = 0) then
      FOnFocusHidden(Self);
    6: if Assigned(FOnFocusLost) and (Count = 0) then
      FOnFocusLost(Self);
    7: if Assigned(FOnKeyDown) and (Count = 2) then
      FOnKeyDown(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^);
    8: if Assigned(FOnKeyPress) and (Count = 1) then
      FOnKeyPress(Self, PSmallInt(DataOf(Arguments, Count, 0))^);
    9: if Assigned(FOnKeyUp) and (Count = 2) then
      FOnKeyUp(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^);
    10: if Assigned(FOnMouseDown) and (Count = 4) then
      FOnMouseDown(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    11: if Assigned(FOnMouseMove) and (Count = 4) then
      FOnMouseMove(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    12: if Assigned(FOnMouseOut) and (Count = 4) then
      FOnMouseOut(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    13: if Assigned(FOnMouseUp) and (Count = 4) then
      FOnMouseUp(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    14: if Assigned(FOnPopUp) and (Count = 0) then
      FOnPopUp(Self);
  end;
end;

class function TButtonPalette.ControlClass: TGUID;
begin
  Result := CLASS_ButtonPalette;
end;

class function TButtonPalette.EventsInterface: TGUID;
begin
  Result := EVENTS_ButtonPalette;
end;

function TButtonPalette.GetActiveColor: LongInt;
begin
  Result := _ButtonPalette(Automation).ActiveColor;
end;

function TButtonPalette.GetActiveText: WideString;
begin
  Result := _ButtonPalette(Automation).ActiveText;
end;

function TButtonPalette.GetBackColor: LongInt;
begin
  Result := _ButtonPalette(Automation).BackColor;
end;

procedure TButtonPalette.SetBackColor(const Value: LongInt);
begin
  _ButtonPalette(Automation).BackColor := Value;
end;

function TButtonPalette.GetBackcolorCustom: WordBool;
begin
  Result := _ButtonPalette(Automation).BackcolorCustom;
end;

procedure TButtonPalette.SetBackcolorCustom(const Value: WordBool);
begin
  _ButtonPalette(Automation).BackcolorCustom := Value;
end;

function TButtonPalette.GetbMOUSEPOSLOC: WordBool;
begin
  Result := _ButtonPalette(Automation).bMOUSEPOSLOC;
end;

procedure TButtonPalette.SetbMOUSEPOSLOC(const Value: WordBool);
begin
  _ButtonPalette(Automation).bMOUSEPOSLOC := Value;
end;

function TButtonPalette.GetbPOSITIONDEFAULT: WordBool;
begin
  Result := _ButtonPalette(Automation).bPOSITIONDEFAULT;
end;

procedure TButtonPalette.SetbPOSITIONDEFAULT(const Value: WordBool);
begin
  _ButtonPalette(Automation).bPOSITIONDEFAULT := Value;
end;

function TButtonPalette.GetButtonType: ButtonTypesdd;
begin
  Result := _ButtonPalette(Automation).ButtonType;
end;

procedure TButtonPalette.SetButtonType(const Value: ButtonTypesdd);
begin
  _ButtonPalette(Automation).ButtonType := Value;
end;

function TButtonPalette.GetCaption: WideString;
begin
  Result := _ButtonPalette(Automation).Caption;
end;

procedure TButtonPalette.SetCaption(const Value: WideString);
begin
  _ButtonPalette(Automation).Caption := Value;
end;

function TButtonPalette.GetColor: LongInt;
begin
  Result := _ButtonPalette(Automation).Color;
end;

procedure TButtonPalette.SetColor(const Value: LongInt);
begin
  _ButtonPalette(Automation).Color := Value;
end;

function TButtonPalette.GetEnabled: WordBool;
begin
  Result := _ButtonPalette(Automation).Enabled;
end;

procedure TButtonPalette.SetEnabled(const Value: WordBool);
begin
  _ButtonPalette(Automation).Enabled := Value;
end;

function TButtonPalette.GetFocusRect: WordBool;
begin
  Result := _ButtonPalette(Automation).FocusRect;
end;

procedure TButtonPalette.SetFocusRect(const Value: WordBool);
begin
  _ButtonPalette(Automation).FocusRect := Value;
end;

function TButtonPalette.GetFont: IDispatch;
begin
  Result := _ButtonPalette(Automation).Font;
end;

procedure TButtonPalette.SetFont(const Value: IDispatch);
begin
  _ButtonPalette(Automation).Font := Value;
end;

function TButtonPalette.GetForeColor: LongInt;
begin
  Result := _ButtonPalette(Automation).ForeColor;
end;

procedure TButtonPalette.SetForeColor(const Value: LongInt);
begin
  _ButtonPalette(Automation).ForeColor := Value;
end;

procedure TButtonPalette.HidePopUp;
begin
  _ButtonPalette(Automation).HidePopUp;
end;

function TButtonPalette.GethWnd: LongInt;
begin
  Result := _ButtonPalette(Automation).hWnd;
end;

function TButtonPalette.GetMaskHLightColor: LongInt;
begin
  Result := _ButtonPalette(Automation).MaskHLightColor;
end;

procedure TButtonPalette.SetMaskHLightColor(const Value: LongInt);
begin
  _ButtonPalette(Automation).MaskHLightColor := Value;
end;

function TButtonPalette.GetMousePosn: WordBool;
begin
  Result := _ButtonPalette(Automation).MousePosn;
end;

procedure TButtonPalette.SetMousePosn(const Value: WordBool);
begin
  _ButtonPalette(Automation).MousePosn := Value;
end;

function TButtonPalette.GetPalette: enQUILLPalette;
begin
  Result := _ButtonPalette(Automation).Palette;
end;

procedure TButtonPalette.SetPalette(const Value: enQUILLPalette);
begin
  _ButtonPalette(Automation).Palette := Value;
end;

function TButtonPalette.GetPicture: IDispatch;
begin
  Result := _ButtonPalette(Automation).Picture;
end;

procedure TButtonPalette.SetPicture(const Value: IDispatch);
begin
  _ButtonPalette(Automation).Picture := Value;
end;

function TButtonPalette.GetPictureDisabled: IDispatch;
begin
  Result := _ButtonPalette(Automation).PictureDisabled;
end;

procedure TButtonPalette.SetPictureDisabled(const Value: IDispatch);
begin
  _ButtonPalette(Automation).PictureDisabled := Value;
end;

function TButtonPalette.GetPictureVisible: WordBool;
begin
  Result := _ButtonPalette(Automation).PictureVisible;
end;

procedure TButtonPalette.SetPictureVisible(const Value: WordBool);
begin
  _ButtonPalette(Automation).PictureVisible := Value;
end;

function TButtonPalette.GetPopupEnabled: WordBool;
begin
  Result := _ButtonPalette(Automation).PopupEnabled;
end;

procedure TButtonPalette.SetPopupEnabled(const Value: WordBool);
begin
  _ButtonPalette(Automation).PopupEnabled := Value;
end;

procedure TButtonPalette.SetTheme;
begin
  _ButtonPalette(Automation).SetTheme;
end;

function TButtonPalette.GetShowButtonColor: WordBool;
begin
  Result := _ButtonPalette(Automation).ShowButtonColor;
end;

procedure TButtonPalette.SetShowButtonColor(const Value: WordBool);
begin
  _ButtonPalette(Automation).ShowButtonColor := Value;
end;

procedure TButtonPalette.ShowPopUp;
begin
  _ButtonPalette(Automation).ShowPopUp;
end;

function TButtonPalette.GetText: WideString;
begin
  Result := _ButtonPalette(Automation).Text;
end;

procedure TButtonPalette.UserControl_Click;
begin
  _ButtonPalette(Automation).UserControl_Click;
end;

procedure TButtonPalette.UserControl_ExitFocus;
begin
  _ButtonPalette(Automation).UserControl_ExitFocus;
end;

procedure TButtonPalette.UserControlMouseOut(var Button: SmallInt; var Shift: SmallInt; var X: Single; var Y: Single);
begin
  _ButtonPalette(Automation).UserControlMouseOut(Button, Shift, X, Y);
end;

procedure TButtonPalette.Raise_(Number: Integer; Arguments: Pointer; Count: Integer);
begin
  case Number of
    1: if Assigned(FOnChange) and (Count = 1) then
      FOnChange(Self, PLongInt(DataOf(Arguments, Count, 0))^);
    2: if Assigned(FOnChangeCustom) and (Count = 1) then
      FOnChangeCustom(Self, PLongInt(DataOf(Arguments, Count, 0))^);
    3: if Assigned(FOnClick) and (Count = 0) then
      FOnClick(Self);
    4: if Assigned(FOnDblClick) and (Count = 0) then
      FOnDblClick(Self);
    5: if Assigned(FOnFocusHidden) and (Count = 0) then
      FOnFocusHidden(Self);
    6: if Assigned(FOnFocusLost) and (Count = 0) then
      FOnFocusLost(Self);
    7: if Assigned(FOnKeyDown) and (Count = 2) then
      FOnKeyDown(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^);
    8: if Assigned(FOnKeyPress) and (Count = 1) then
      FOnKeyPress(Self, PSmallInt(DataOf(Arguments, Count, 0))^);
    9: if Assigned(FOnKeyUp) and (Count = 2) then
      FOnKeyUp(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^);
    10: if Assigned(FOnMouseDown) and (Count = 4) then
      FOnMouseDown(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    11: if Assigned(FOnMouseMove) and (Count = 4) then
      FOnMouseMove(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    12: if Assigned(FOnMouseOut) and (Count = 4) then
      FOnMouseOut(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    13: if Assigned(FOnMouseUp) and (Count = 4) then
      FOnMouseUp(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    14: if Assigned(FOnPopUp) and (Count = 0) then
      FOnPopUp(Self);
  end;
end;

class function TButtonArrow.ControlClass: TGUID;
begin
  Result := CLASS_ButtonArrow;
end;

class function TButtonArrow.EventsInterface: TGUID;
begin
  Result := EVENTS_ButtonArrow;
end;

procedure TButtonArrow.EnabledCol(const changeVal: WordBool);
begin
  _ButtonArrow(Automation).EnabledCol(changeVal);
end;

procedure TButtonArrow.Raise_(Number: Integer; Arguments: Pointer; Count: Integer);
begin
end;

class function TGridEdit.ControlClass: TGUID;
begin
  Result := CLASS_GridEdit;
end;

class function TGridEdit.EventsInterface: TGUID;
begin
  Result := EVENTS_GridEdit;
end;

function TGridEdit.GetmstrDragInfo: WideString;
begin
  Result := _GridEdit(Automation).mstrDragInfo;
end;

procedure TGridEdit.SetmstrDragInfo(const Value: WideString);
begin
  _GridEdit(Automation).mstrDragInfo := Value;
end;

function TGridEdit.GetblnPUBSHOWALARM: WordBool;
begin
  Result := _GridEdit(Automation).blnPUBSHOWALARM;
end;

procedure TGridEdit.SetblnPUBSHOWALARM(const Value: WordBool);
begin
  _GridEdit(Automation).blnPUBSHOWALARM := Value;
end;

procedure TGridEdit.SetAllowGridEdit(const Value: WordBool);
begin
  _GridEdit(Automation).AllowGridEdit := Value;
end;

procedure TGridEdit.barCol(var newcol: LongInt);
begin
  _GridEdit(Automation).barCol(newcol);
end;

procedure TGridEdit.BarColText(var newcol: LongInt);
begin
  _GridEdit(Automation).BarColText(newcol);
end;

function TGridEdit.GetBarHeader: WordBool;
begin
  Result := _GridEdit(Automation).BarHeader;
end;

procedure TGridEdit.SetBarHeader(const Value: WordBool);
begin
  _GridEdit(Automation).BarHeader := Value;
end;

function TGridEdit.BarHeaderCaptionRead(const colno: LongInt): WideString;
begin
  Result := _GridEdit(Automation).BarHeaderCaptionRead(colno);
end;

procedure TGridEdit.BarHeaderCaptionSet(const colno: LongInt; const sCaption: WideString);
begin
  _GridEdit(Automation).BarHeaderCaptionSet(colno, sCaption);
end;

function TGridEdit.GetBarHeaderColorRefresh: LongInt;
begin
  Result := _GridEdit(Automation).BarHeaderColorRefresh;
end;

procedure TGridEdit.SetBarHeaderColorRefresh(const Value: LongInt);
begin
  _GridEdit(Automation).BarHeaderColorRefresh := Value;
end;

function TGridEdit.BarHeaderColumn: LongInt;
begin
  Result := _GridEdit(Automation).BarHeaderColumn;
end;

procedure TGridEdit.BarHeaderRefresh;
begin
  _GridEdit(Automation).BarHeaderRefresh;
end;

procedure TGridEdit.BarHeaderSort;
begin
  _GridEdit(Automation).BarHeaderSort;
end;

function TGridEdit.GetBorderStyle: LongInt;
begin
  Result := _GridEdit(Automation).BorderStyle;
end;

procedure TGridEdit.SetBorderStyle(const Value: LongInt);
begin
  _GridEdit(Automation).BorderStyle := Value;
end;

procedure TGridEdit.BoxHide;
begin
  _GridEdit(Automation).BoxHide;
end;

procedure TGridEdit.BoxSelect;
begin
  _GridEdit(Automation).BoxSelect;
end;

procedure TGridEdit.BoxShow;
begin
  _GridEdit(Automation).BoxShow;
end;

procedure TGridEdit.cboLIST_KeyDown(var KeyCode: SmallInt; var Shift: SmallInt);
begin
  _GridEdit(Automation).cboLIST_KeyDown(KeyCode, Shift);
end;

procedure TGridEdit.cboLIST_KeyUp(var KeyCode: SmallInt; var Shift: SmallInt);
begin
  _GridEdit(Automation).cboLIST_KeyUp(KeyCode, Shift);
end;

procedure TGridEdit.CellChkSet(const Row: LongInt; const Col: LongInt; const Value: WideString);
begin
  _GridEdit(Automation).CellChkSet(Row, Col, Value);
end;

function TGridEdit.CellColorReadx(const rowno: LongInt; const colno: LongInt): LongInt;
begin
  Result := _GridEdit(Automation).CellColorReadx(rowno, colno);
end;

procedure TGridEdit.CellColorSetx(const Color: LongInt; const rowno: LongInt; const colno: LongInt);
begin
  _GridEdit(Automation).CellColorSetx(Color, rowno, colno);
end;

function TGridEdit.CellCurrentHeight: LongInt;
begin
  Result := _GridEdit(Automation).CellCurrentHeight;
end;

function TGridEdit.CellCurrentLeft: LongInt;
begin
  Result := _GridEdit(Automation).CellCurrentLeft;
end;

function TGridEdit.CellCurrentTop: LongInt;
begin
  Result := _GridEdit(Automation).CellCurrentTop;
end;

function TGridEdit.CellCurrentWidth: LongInt;
begin
  Result := _GridEdit(Automation).CellCurrentWidth;
end;

procedure TGridEdit.CellEnabledSet(const rowno: LongInt; const colno: LongInt; const StrikeThru: WordBool; const oleForeColor: LongInt);
begin
  _GridEdit(Automation).CellEnabledSet(rowno, colno, StrikeThru, oleForeColor);
end;

procedure TGridEdit.CellFontSet(const rowno: LongInt; const colno: LongInt; const sFont: WideString; const Size: WideString; const Bold: WordBool; const StrikeThru: WordBool; const oleForeColor: LongInt);
begin
  _GridEdit(Automation).CellFontSet(rowno, colno, sFont, Size, Bold, StrikeThru, oleForeColor);
end;

procedure TGridEdit.CellFormatSet(const rowno: LongInt; const colno: LongInt; const sFont: WideString; const Size: WideString; const Bold: WordBool; const StrikeThru: WordBool; const oleForeColor: LongInt);
begin
  _GridEdit(Automation).CellFormatSet(rowno, colno, sFont, Size, Bold, StrikeThru, oleForeColor);
end;

function TGridEdit.CellLeft: LongInt;
begin
  Result := _GridEdit(Automation).CellLeft;
end;

procedure TGridEdit.CellSetIcon(const colno: LongInt; const rowno: LongInt; const iconname: WideString);
begin
  _GridEdit(Automation).CellSetIcon(colno, rowno, iconname);
end;

function TGridEdit.CellTextRead(const rowno: LongInt; const colno: LongInt): WideString;
begin
  Result := _GridEdit(Automation).CellTextRead(rowno, colno);
end;

procedure TGridEdit.CellTextSet(const rowno: LongInt; const colno: LongInt; const Text: WideString);
begin
  _GridEdit(Automation).CellTextSet(rowno, colno, Text);
end;

function TGridEdit.CelWidth: LongInt;
begin
  Result := _GridEdit(Automation).CelWidth;
end;

procedure TGridEdit.Change;
begin
  _GridEdit(Automation).Change;
end;

procedure TGridEdit.ChangePost;
begin
  _GridEdit(Automation).ChangePost;
end;

procedure TGridEdit.ColAdd(const ColWidth: Double);
begin
  _GridEdit(Automation).ColAdd(ColWidth);
end;

function TGridEdit.ColCurrent: LongInt;
begin
  Result := _GridEdit(Automation).ColCurrent;
end;

procedure TGridEdit.ColDel;
begin
  _GridEdit(Automation).ColDel;
end;

function TGridEdit.ColsCurrent: LongInt;
begin
  Result := _GridEdit(Automation).ColsCurrent;
end;

procedure TGridEdit.ColSetFocus(const colno: LongInt);
begin
  _GridEdit(Automation).ColSetFocus(colno);
end;

procedure TGridEdit.ColsSet(const colno: LongInt);
begin
  _GridEdit(Automation).ColsSet(colno);
end;

function TGridEdit.ColTypeRead(const colno: LongInt): WideString;
begin
  Result := _GridEdit(Automation).ColTypeRead(colno);
end;

procedure TGridEdit.ColTypeSet(const colno: LongInt; const ColTypeVal: LongInt);
begin
  _GridEdit(Automation).ColTypeSet(colno, ColTypeVal);
end;

procedure TGridEdit.ColumnRefreshHeaders(const colno: LongInt);
begin
  _GridEdit(Automation).ColumnRefreshHeaders(colno);
end;

procedure TGridEdit.ColumnVisible(const colno: LongInt; const cWidth: LongInt; const cVISIBLE: WordBool);
begin
  _GridEdit(Automation).ColumnVisible(colno, cWidth, cVISIBLE);
end;

procedure TGridEdit.ColWidth(const colno: LongInt; const ColWidthVal: Double);
begin
  _GridEdit(Automation).ColWidth(colno, ColWidthVal);
end;

procedure TGridEdit.ComboAdd(const Item: WideString);
begin
  _GridEdit(Automation).ComboAdd(Item);
end;

procedure TGridEdit.ComboClear;
begin
  _GridEdit(Automation).ComboClear;
end;

procedure TGridEdit.ComboDel(const Index: LongInt);
begin
  _GridEdit(Automation).ComboDel(Index);
end;

function TGridEdit.GetFont: IDispatch;
begin
  Result := _GridEdit(Automation).Font;
end;

procedure TGridEdit.SetFont(const Value: IDispatch);
begin
  _GridEdit(Automation).Font := Value;
end;

procedure TGridEdit.FontUpdate;
begin
  _GridEdit(Automation).FontUpdate;
end;

procedure TGridEdit.GridChange;
begin
  _GridEdit(Automation).GridChange;
end;

procedure TGridEdit.GridClear;
begin
  _GridEdit(Automation).GridClear;
end;

procedure TGridEdit.GridColr(var newcol: LongInt);
begin
  _GridEdit(Automation).GridColr(newcol);
end;

procedure TGridEdit.GridColSort(const colno: LongInt);
begin
  _GridEdit(Automation).GridColSort(colno);
end;

procedure TGridEdit.GridColSortInitialDate;
begin
  _GridEdit(Automation).GridColSortInitialDate;
end;

procedure TGridEdit.GridFocusShow;
begin
  _GridEdit(Automation).GridFocusShow;
end;

procedure TGridEdit.GridHide;
begin
  _GridEdit(Automation).GridHide;
end;

function TGridEdit.GridLoad(const Path: WideString): WideString;
begin
  Result := _GridEdit(Automation).GridLoad(Path);
end;

procedure TGridEdit.GridRedraw(const Status: WordBool);
begin
  _GridEdit(Automation).GridRedraw(Status);
end;

procedure TGridEdit.GridRefresh;
begin
  _GridEdit(Automation).GridRefresh;
end;

procedure TGridEdit.GridReset;
begin
  _GridEdit(Automation).GridReset;
end;

procedure TGridEdit.GridSave(const Path: WideString; const Header: WideString);
begin
  _GridEdit(Automation).GridSave(Path, Header);
end;

procedure TGridEdit.GridSetFocus(const colno: LongInt; const rowno: LongInt);
begin
  _GridEdit(Automation).GridSetFocus(colno, rowno);
end;

procedure TGridEdit.GridShow;
begin
  _GridEdit(Automation).GridShow;
end;

function TGridEdit.GethWnd: LongInt;
begin
  Result := _GridEdit(Automation).hWnd;
end;

function TGridEdit.IsEven(const Number: LongInt): WordBool;
begin
  Result := _GridEdit(Automation).IsEven(Number);
end;

function TGridEdit.MouseCol: LongInt;
begin
  Result := _GridEdit(Automation).MouseCol;
end;

function TGridEdit.GetMousePosn: LongInt;
begin
  Result := _GridEdit(Automation).MousePosn;
end;

procedure TGridEdit.SetMousePosn(const Value: LongInt);
begin
  _GridEdit(Automation).MousePosn := Value;
end;

function TGridEdit.MouseRow: LongInt;
begin
  Result := _GridEdit(Automation).MouseRow;
end;

procedure TGridEdit.RowAdd(const Text: WideString; const rowno: LongInt);
begin
  _GridEdit(Automation).RowAdd(Text, rowno);
end;

procedure TGridEdit.RowAddQuick(const Text: WideString; const rowno: LongInt);
begin
  _GridEdit(Automation).RowAddQuick(Text, rowno);
end;

function TGridEdit.RowCurrent: LongInt;
begin
  Result := _GridEdit(Automation).RowCurrent;
end;

procedure TGridEdit.RowDel(const rowno: LongInt);
begin
  _GridEdit(Automation).RowDel(rowno);
end;

function TGridEdit.RowsCurrent: LongInt;
begin
  Result := _GridEdit(Automation).RowsCurrent;
end;

procedure TGridEdit.RowSetFocus(const rowno: LongInt);
begin
  _GridEdit(Automation).RowSetFocus(rowno);
end;

procedure TGridEdit.RowsRefreshColors(var NewColor: LongInt);
begin
  _GridEdit(Automation).RowsRefreshColors(NewColor);
end;

procedure TGridEdit.RowsSet(const rowno: LongInt);
begin
  _GridEdit(Automation).RowsSet(rowno);
end;

function TGridEdit.TopRowRead: LongInt;
begin
  Result := _GridEdit(Automation).TopRowRead;
end;

procedure TGridEdit.TopRowSet(const NewValue: LongInt);
begin
  _GridEdit(Automation).TopRowSet(NewValue);
end;

procedure TGridEdit.Raise_(Number: Integer; Arguments: Pointer; Count: Integer);
begin
  case Number of
    1: if Assigned(FOnCboBoxClick) and (Count = 0) then
      FOnCboBoxClick(Self);
    2: if Assigned(FOnCboClick) and (Count = 0) then
      FOnCboClick(Self);
    3: if Assigned(FOnCellSelected) and (Count = 0) then
      FOnCellSelected(Self);
    4: if Assigned(FOnChange) and (Count = 0) then
      FOnChange(Self);
    5: if Assigned(FOnChangeEdited) and (Count = 0) then
      FOnChangeEdited(Self);
    6: if Assigned(FOnChangePost) and (Count = 0) then
      FOnChangePost(Self);
    7: if Assigned(FOnClick) and (Count = 0) then
      FOnClick(Self);
    8: if Assigned(FOnDblClick) and (Count = 0) then
      FOnDblClick(Self);
    9: if Assigned(FOnDblClickExt) and (Count = 0) then
      FOnDblClickExt(Self);
    10: if Assigned(FOnDelRow) and (Count = 0) then
      FOnDelRow(Self);
    11: if Assigned(FOnKeyDown) and (Count = 2) then
      FOnKeyDown(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^);
    12: if Assigned(FOnKeyPress) and (Count = 1) then
      FOnKeyPress(Self, PSmallInt(DataOf(Arguments, Count, 0))^);
    13: if Assigned(FOnKeyUp) and (Count = 2) then
      FOnKeyUp(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^);
    14: if Assigned(FOnMouseDown) and (Count = 4) then
      FOnMouseDown(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    15: if Assigned(FOnMouseMove) and (Count = 4) then
      FOnMouseMove(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    16: if Assigned(FOnMouseUp) and (Count = 4) then
      FOnMouseUp(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    17: if Assigned(FOnNewRow) and (Count = 1) then
      FOnNewRow(Self, PSmallInt(DataOf(Arguments, Count, 0))^);
    18: if Assigned(FOnSelChange) and (Count = 0) then
      FOnSelChange(Self);
    19: if Assigned(FOnOLEDragDrop) and (Count = 6) then
      FOnOLEDragDrop(Self, PUnknownReference(DataOf(Arguments, Count, 0))^, PLongInt(DataOf(Arguments, Count, 1))^, PSmallInt(DataOf(Arguments, Count, 2))^, PSmallInt(DataOf(Arguments, Count, 3))^, PSingle(DataOf(Arguments, Count, 4))^, PSingle(DataOf(Arguments, Count, 5))^);
    20: if Assigned(FOnNewRowSelected) and (Count = 0) then
      FOnNewRowSelected(Self);
    21: if Assigned(FOnSortClick) and (Count = 0) then
      FOnSortClick(Self);
  end;
end;

class function TPageTab.ControlClass: TGUID;
begin
  Result := CLASS_PageTab;
end;

class function TPageTab.EventsInterface: TGUID;
begin
  Result := EVENTS_PageTab;
end;

function TPageTab.GetstrPUBSKINCOLORPAGE: WideString;
begin
  Result := _PageTab(Automation).strPUBSKINCOLORPAGE;
end;

procedure TPageTab.SetstrPUBSKINCOLORPAGE(const Value: WideString);
begin
  _PageTab(Automation).strPUBSKINCOLORPAGE := Value;
end;

function TPageTab.GetlngSELECTEDPAGECOLOR: LongInt;
begin
  Result := _PageTab(Automation).lngSELECTEDPAGECOLOR;
end;

procedure TPageTab.SetlngSELECTEDPAGECOLOR(const Value: LongInt);
begin
  _PageTab(Automation).lngSELECTEDPAGECOLOR := Value;
end;

function TPageTab.GetActiveTab: LongInt;
begin
  Result := _PageTab(Automation).ActiveTab;
end;

procedure TPageTab.SetActiveTab(const Value: LongInt);
begin
  _PageTab(Automation).ActiveTab := Value;
end;

function TPageTab.ActiveTabNameGet(const Index: LongInt): WideString;
begin
  Result := _PageTab(Automation).ActiveTabNameGet(Index);
end;

procedure TPageTab.ActiveTabNameSet(const ActiveTabName: WideString);
begin
  _PageTab(Automation).ActiveTabNameSet(ActiveTabName);
end;

function TPageTab.GetActiveTabs: WideString;
begin
  Result := _PageTab(Automation).ActiveTabs;
end;

procedure TPageTab.SetActiveTabs(const Value: WideString);
begin
  _PageTab(Automation).ActiveTabs := Value;
end;

procedure TPageTab.AddTab(const sCaption: WideString);
begin
  _PageTab(Automation).AddTab(sCaption);
end;

function TPageTab.GetBackColorPage: LongInt;
begin
  Result := _PageTab(Automation).BackColorPage;
end;

procedure TPageTab.SetBackColorPage(const Value: LongInt);
begin
  _PageTab(Automation).BackColorPage := Value;
end;

procedure TPageTab.ImageDis;
begin
  _PageTab(Automation).ImageDis;
end;

procedure TPageTab.ImageHLight;
begin
  _PageTab(Automation).ImageHLight;
end;

procedure TPageTab.ImageSel;
begin
  _PageTab(Automation).ImageSel;
end;

procedure TPageTab.ObjectMouseUp;
begin
  _PageTab(Automation).ObjectMouseUp;
end;

function TPageTab.GetPageColor: LongInt;
begin
  Result := _PageTab(Automation).PageColor;
end;

procedure TPageTab.SetPageColor(const Value: LongInt);
begin
  _PageTab(Automation).PageColor := Value;
end;

function TPageTab.GetTextColor: LongInt;
begin
  Result := _PageTab(Automation).TextColor;
end;

procedure TPageTab.SetTextColor(const Value: LongInt);
begin
  _PageTab(Automation).TextColor := Value;
end;

function TPageTab.GetPageMainColor: LongInt;
begin
  Result := _PageTab(Automation).PageMainColor;
end;

procedure TPageTab.SetPageMainColor(const Value: LongInt);
begin
  _PageTab(Automation).PageMainColor := Value;
end;

procedure TPageTab.Refresh;
begin
  _PageTab(Automation).Refresh;
end;

procedure TPageTab.SetFont(const New_Font: WideString; const New_FontSize: WideString);
begin
  _PageTab(Automation).SetFont(New_Font, New_FontSize);
end;

function TPageTab.GetTabColor: WideString;
begin
  Result := _PageTab(Automation).TabColor;
end;

procedure TPageTab.SetTabColor(const Value: WideString);
begin
  _PageTab(Automation).TabColor := Value;
end;

procedure TPageTab.Raise_(Number: Integer; Arguments: Pointer; Count: Integer);
begin
  case Number of
    1: if Assigned(FOnClick) and (Count = 1) then
      FOnClick(Self, PWideString(DataOf(Arguments, Count, 0))^);
    2: if Assigned(FOndlbClick) and (Count = 0) then
      FOndlbClick(Self);
    3: if Assigned(FOnMouseDown) and (Count = 5) then
      FOnMouseDown(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^, PWideString(DataOf(Arguments, Count, 4))^);
    4: if Assigned(FOnMouseDownback) and (Count = 5) then
      FOnMouseDownback(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^, PWideString(DataOf(Arguments, Count, 4))^);
    5: if Assigned(FOnMouseMove) and (Count = 4) then
      FOnMouseMove(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    6: if Assigned(FOnMouseUp) and (Count = 4) then
      FOnMouseUp(Self, PSmallInt(DataOf(Arguments, Count, 0))^, PSmallInt(DataOf(Arguments, Count, 1))^, PSingle(DataOf(Arguments, Count, 2))^, PSingle(DataOf(Arguments, Count, 3))^);
    7: if Assigned(FOnShow) and (Count = 0) then
      FOnShow(Self);
  end;
end;

class function Tlns.ControlClass: TGUID;
begin
  Result := CLASS_lns;
end;

class function Tlns.EventsInterface: TGUID;
begin
  Result := EVENTS_lns;
end;

procedure Tlns.ColorRefresh;
begin
  _lns(Automation).ColorRefresh;
end;

procedure Tlns.Raise_(Number: Integer; Arguments: Pointer; Count: Integer);
begin
end;

end.
