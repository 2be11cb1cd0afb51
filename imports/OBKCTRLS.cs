// Orbek Controls 1.0.0, made from the tables that the type library is made from: no importer is needed.
// For each control: its members and events, a class to create, and a control for Windows Forms.
using System;
using System.Runtime.InteropServices;
using System.Windows.Forms;

namespace OBKCTRLS
{
    /// <summary>Kinds of a button; all look the same, and a form keeps which one it was given.</summary>
    public enum ButtonTypesdd
    {
        CButton = 1,
        CFlat = 2,
        CSoft = 3,
        CRaised = 4,
        CSunken = 5,
        CEtched = 6,
        CBump = 7,
        CFramed = 8,
        CBorderless = 9,
        CToolbar = 10,
        CHover = 11,
        CLink = 12,
        CSplit = 13,
        CDropDown = 14,
    }

    /// <summary>Palettes: columns by rows, or base colours by rows by columns of shades.</summary>
    public enum enQUILLPalette
    {
        QP8X2 = 0,
        QP9X3 = 1,
        QP8X8 = 2,
        QP16X8 = 3,
        QP24X8 = 4,
        QP24X10 = 5,
        QP8X4X4 = 6,
        QP8X8X6 = 7,
        QP12X6X6 = 8,
        QP16X8X6 = 9,
        QP24X8X6 = 10,
        QP32X8X6 = 11,
    }

    /// <summary>A numeric text box with a spinner.</summary>
    [ComImport, Guid("91F977B5-5907-4153-87E4-9D7C346B6951"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface _UpDownTextBox
    {
        /// <summary>Alignment of the text: 0 left, 1 right, 2 centre.</summary>
        [DispId(1)] int Alignment { [DispId(1)] get; [DispId(1)] set; }
        /// <summary>Whether the mouse wheel steps the value; the arrow keys always do.</summary>
        [DispId(2)] bool AllowArrowKeys { [DispId(2)] get; [DispId(2)] set; }
        /// <summary>Whether a decimal point may be typed; stepped values then show one decimal.</summary>
        [DispId(3)] bool AllowDecpoint { [DispId(3)] get; [DispId(3)] set; }
        /// <summary>Background colour; enabling the control sets it to the window background.</summary>
        [DispId(4)] int BackColor { [DispId(4)] get; [DispId(4)] set; }
        /// <summary>Border of the field: 0 none, 1 a border.</summary>
        [DispId(5)] int BorderStyle { [DispId(5)] get; [DispId(5)] set; }
        /// <summary>Side of the buttons: 0 right, 1 left.</summary>
        [DispId(6)] int BuddyAlignment { [DispId(6)] get; [DispId(6)] set; }
        /// <summary>1 when a text holds a full stop, else 0.</summary>
        [DispId(7)] int DecimalpointCheck(string Number);
        /// <summary>Whether the user can change the value.</summary>
        [DispId(8)] bool Enabled { [DispId(8)] get; [DispId(8)] set; }
        /// <summary>Font of the text.</summary>
        [DispId(9)] object Font { [DispId(9)] [return: MarshalAs(UnmanagedType.IDispatch)] get; [DispId(9)] [param: MarshalAs(UnmanagedType.IDispatch)] set; }
        /// <summary>Colour of the text.</summary>
        [DispId(10)] int ForeColor { [DispId(10)] get; [DispId(10)] set; }
        /// <summary>Amount of one step; 0 on a freshly placed control.</summary>
        [DispId(11)] double Interval { [DispId(11)] get; [DispId(11)] set; }
        /// <summary>The typed character's code, or 0 when a numeric field should reject it.</summary>
        [DispId(12)] byte KeyLock(int KeyAscii, bool Extra_Check, ref string Extra_sText);
        /// <summary>Largest value.</summary>
        [DispId(13)] int Max { [DispId(13)] get; [DispId(13)] set; }
        /// <summary>Most characters that the text may have; 0 is no limit.</summary>
        [DispId(14)] int MaxLength { [DispId(14)] get; [DispId(14)] set; }
        /// <summary>Smallest value.</summary>
        [DispId(15)] int Min { [DispId(15)] get; [DispId(15)] set; }
        /// <summary>Lays the control out again and redraws the spinner.</summary>
        [DispId(16)] void Refresh();
        /// <summary>Takes over changes of the font and lays the control out again.</summary>
        [DispId(17)] void RefreshFont();
        /// <summary>Lightens (positive value) or darkens (negative value) an RGB colour.</summary>
        [DispId(18)] int ShiftColor(int Color, int Value, bool IsXP);
        /// <summary>Held for hosts that keep a field and its spinner in step.</summary>
        [DispId(19)] bool SyncBuddy { [DispId(19)] get; [DispId(19)] set; }
        /// <summary>The value as text.</summary>
        [DispId(20)] string Text { [DispId(20)] get; [DispId(20)] set; }
        /// <summary>Held for hosts; a text with grouping commas reads as the number it shows.</summary>
        [DispId(21)] bool ThousandsSeparator { [DispId(21)] get; [DispId(21)] set; }
    }

    /// <summary>Events of UpDownTextBox.</summary>
    [ComImport, Guid("E1AFBD5F-531D-46E4-B6C7-10B8C0B80220"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface __UpDownTextBox
    {
        [DispId(1)] void Change();
        [DispId(2)] void Click();
        [DispId(3)] void DblClick();
        [DispId(4)] void DownClick();
        [DispId(5)] void KeyDown(ref short KeyCode, ref short Shift);
        [DispId(6)] void KeyPress(ref short KeyAscii);
        [DispId(7)] void KeyUp(ref short KeyCode, ref short Shift);
        [DispId(8)] void MouseDown(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(9)] void MouseMove(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(10)] void MouseUp(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(11)] void UpClick();
    }

    /// <summary>A numeric text box with a spinner; created by itself, without a window.</summary>
    [ComImport, Guid("D8CFD887-69FC-498C-8C1C-8A9F2D8431FB")]
    public class UpDownTextBoxClass
    {
    }

    public delegate void UpDownTextBoxKeyDownHandler(ref short KeyCode, ref short Shift);
    public delegate void UpDownTextBoxKeyPressHandler(ref short KeyAscii);
    public delegate void UpDownTextBoxKeyUpHandler(ref short KeyCode, ref short Shift);
    public delegate void UpDownTextBoxMouseDownHandler(ref short Button, ref short Shift, ref float X, ref float Y);
    public delegate void UpDownTextBoxMouseMoveHandler(ref short Button, ref short Shift, ref float X, ref float Y);
    public delegate void UpDownTextBoxMouseUpHandler(ref short Button, ref short Shift, ref float X, ref float Y);

    /// <summary>A numeric text box with a spinner; to be put on a form.</summary>
    public class AxUpDownTextBox : AxHost
    {
        private ConnectionPointCookie cookie;

        public AxUpDownTextBox() : base("D8CFD887-69FC-498C-8C1C-8A9F2D8431FB")
        {
        }

        /// <summary>The members of the control, once it is on a form that was shown.</summary>
        public _UpDownTextBox Members
        {
            get { return (_UpDownTextBox)GetOcx(); }
        }

        /// <summary>The text has changed.</summary>
        public event Action ChangeEvent;
        /// <summary>The text box was clicked.</summary>
        public event Action ClickEvent;
        /// <summary>The text box was double-clicked.</summary>
        public event Action DblClickEvent;
        /// <summary>The value is about to be increased.</summary>
        public event Action DownClickEvent;
        /// <summary>A key went down in the text box; a stepping key has stepped already.</summary>
        public event UpDownTextBoxKeyDownHandler KeyDownEvent;
        /// <summary>A character was typed; 0 when it was rejected.</summary>
        public event UpDownTextBoxKeyPressHandler KeyPressEvent;
        /// <summary>A key was released in the text box.</summary>
        public event UpDownTextBoxKeyUpHandler KeyUpEvent;
        /// <summary>A mouse button went down on the text box or the spinner.</summary>
        public event UpDownTextBoxMouseDownHandler MouseDownEvent;
        /// <summary>The mouse moved over the text box.</summary>
        public event UpDownTextBoxMouseMoveHandler MouseMoveEvent;
        /// <summary>A mouse button was released over the text box.</summary>
        public event UpDownTextBoxMouseUpHandler MouseUpEvent;
        /// <summary>The value is about to be decreased.</summary>
        public event Action UpClickEvent;

        protected override void CreateSink()
        {
            cookie = new ConnectionPointCookie(GetOcx(), new Sink(this), typeof(__UpDownTextBox));
        }

        protected override void DetachSink()
        {
            if (cookie != null) cookie.Disconnect();
            cookie = null;
        }

        [ClassInterface(ClassInterfaceType.None)]
        public sealed class Sink : __UpDownTextBox
        {
            private readonly AxUpDownTextBox owner;

            public Sink(AxUpDownTextBox owner)
            {
                this.owner = owner;
            }

            public void Change()
            {
                var handler = owner.ChangeEvent;
                if (handler != null) handler();
            }

            public void Click()
            {
                var handler = owner.ClickEvent;
                if (handler != null) handler();
            }

            public void DblClick()
            {
                var handler = owner.DblClickEvent;
                if (handler != null) handler();
            }

            public void DownClick()
            {
                var handler = owner.DownClickEvent;
                if (handler != null) handler();
            }

            public void KeyDown(ref short KeyCode, ref short Shift)
            {
                var handler = owner.KeyDownEvent;
                if (handler != null) handler(ref KeyCode, ref Shift);
            }

            public void KeyPress(ref short KeyAscii)
            {
                var handler = owner.KeyPressEvent;
                if (handler != null) handler(ref KeyAscii);
            }

            public void KeyUp(ref short KeyCode, ref short Shift)
            {
                var handler = owner.KeyUpEvent;
                if (handler != null) handler(ref KeyCode, ref Shift);
            }

            public void MouseDown(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseDownEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void MouseMove(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseMoveEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void MouseUp(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseUpEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void UpClick()
            {
                var handler = owner.UpClickEvent;
                if (handler != null) handler();
            }
        }
    }

    /// <summary>A date field with a menu of quick dates and a calendar to drop down.</summary>
    [ComImport, Guid("167D77C5-387C-47EF-B852-123E9DEB589E"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface _DateCalendar
    {
        /// <summary>Background colour of the field.</summary>
        [DispId(1)] int BackColor { [DispId(1)] get; [DispId(1)] set; }
        /// <summary>Whether the mouse is over the field; the same as MousePosn.</summary>
        [DispId(2)] bool bMOUSEPOSLOC { [DispId(2)] get; [DispId(2)] set; }
        /// <summary>Border of the field: 0 none, 1 a border; not stored with a form.</summary>
        [DispId(3)] int BorderStyle { [DispId(3)] get; [DispId(3)] set; }
        /// <summary>Whether the calendar drops down where there is room; else it goes up.</summary>
        [DispId(4)] bool bPOSITIONDEFAULT { [DispId(4)] get; [DispId(4)] set; }
        /// <summary>Fills the calendar for the month and year that are chosen in it.</summary>
        [DispId(5)] void CalendarUpdate();
        /// <summary>Whether the user can change the date.</summary>
        [DispId(6)] bool Enabled { [DispId(6)] get; [DispId(6)] set; }
        /// <summary>Font of the date.</summary>
        [DispId(7)] object Font { [DispId(7)] [return: MarshalAs(UnmanagedType.IDispatch)] get; [DispId(7)] [param: MarshalAs(UnmanagedType.IDispatch)] set; }
        /// <summary>Hides the calendar; raises FocusHidden in any case.</summary>
        [DispId(8)] void HidePopUp();
        /// <summary>Handle of the control's window.</summary>
        [DispId(9)] int hWnd { [DispId(9)] get; }
        /// <summary>Whether the mouse is over the field.</summary>
        [DispId(10)] bool MousePosn { [DispId(10)] get; [DispId(10)] set; }
        /// <summary>Whether the calendar may open; else what would open it raises PopUp alone.</summary>
        [DispId(11)] bool PopupEnabled { [DispId(11)] get; [DispId(11)] set; }
        /// <summary>Shows the calendar on the month of the date; an empty date becomes today's.</summary>
        [DispId(12)] void ShowPopUp();
        /// <summary>Brings the calendar to the month and year that the date's text mentions.</summary>
        [DispId(13)] void subNEWDATE();
        /// <summary>The date as it is shown, "Sat 14 Nov 2026", with eight blanks after it; empty after loading.</summary>
        [DispId(14)] string Text { [DispId(14)] get; [DispId(14)] set; }
        /// <summary>Does what a click on the icon does.</summary>
        [DispId(15)] void UserControl_Click();
        /// <summary>Raises FocusLost and MouseUp, as losing the focus does.</summary>
        [DispId(16)] void UserControl_ExitFocus();
        /// <summary>Tracks the mouse into or out of the field.</summary>
        [DispId(17)] void UserControlMouseOut(ref short Button, ref short Shift, ref float X, ref float Y);
    }

    /// <summary>Events of DateCalendar.</summary>
    [ComImport, Guid("2CD8B3EB-749E-46C5-A902-2E9F46913008"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface __DateCalendar
    {
        [DispId(1)] void Change();
        [DispId(2)] void Click();
        [DispId(3)] void DateUpdated();
        [DispId(4)] void DblClick();
        [DispId(5)] void FocusHidden();
        [DispId(6)] void FocusLost();
        [DispId(7)] void KeyDown(ref short KeyCode, ref short Shift);
        [DispId(8)] void KeyPress(ref short KeyAscii);
        [DispId(9)] void KeyUp(ref short KeyCode, ref short Shift);
        [DispId(10)] void MouseDown(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(11)] void MouseMove(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(12)] void MouseOut(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(13)] void MouseUp(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(14)] void PopUp();
    }

    /// <summary>A date field with a menu of quick dates and a calendar to drop down; created by itself, without a window.</summary>
    [ComImport, Guid("A8DAB03A-805D-413D-A7F0-CBE618158895")]
    public class DateCalendarClass
    {
    }

    public delegate void DateCalendarKeyDownHandler(ref short KeyCode, ref short Shift);
    public delegate void DateCalendarKeyPressHandler(ref short KeyAscii);
    public delegate void DateCalendarKeyUpHandler(ref short KeyCode, ref short Shift);
    public delegate void DateCalendarMouseDownHandler(ref short Button, ref short Shift, ref float X, ref float Y);
    public delegate void DateCalendarMouseMoveHandler(ref short Button, ref short Shift, ref float X, ref float Y);
    public delegate void DateCalendarMouseOutHandler(ref short Button, ref short Shift, ref float X, ref float Y);
    public delegate void DateCalendarMouseUpHandler(ref short Button, ref short Shift, ref float X, ref float Y);

    /// <summary>A date field with a menu of quick dates and a calendar to drop down; to be put on a form.</summary>
    public class AxDateCalendar : AxHost
    {
        private ConnectionPointCookie cookie;

        public AxDateCalendar() : base("A8DAB03A-805D-413D-A7F0-CBE618158895")
        {
        }

        /// <summary>The members of the control, once it is on a form that was shown.</summary>
        public _DateCalendar Members
        {
            get { return (_DateCalendar)GetOcx(); }
        }

        /// <summary>Never raised.</summary>
        public event Action ChangeEvent;
        /// <summary>The field was clicked.</summary>
        public event Action ClickEvent;
        /// <summary>The user changed the date, or ended the editing of its text.</summary>
        public event Action DateUpdatedEvent;
        /// <summary>The field was double-clicked.</summary>
        public event Action DblClickEvent;
        /// <summary>The calendar was hidden, or asked to be.</summary>
        public event Action FocusHiddenEvent;
        /// <summary>The control lost the focus.</summary>
        public event Action FocusLostEvent;
        /// <summary>A key went down; it has had its effect on the calendar already.</summary>
        public event DateCalendarKeyDownHandler KeyDownEvent;
        /// <summary>Never raised.</summary>
        public event DateCalendarKeyPressHandler KeyPressEvent;
        /// <summary>A key was released.</summary>
        public event DateCalendarKeyUpHandler KeyUpEvent;
        /// <summary>A mouse button went down on the field.</summary>
        public event DateCalendarMouseDownHandler MouseDownEvent;
        /// <summary>The mouse moved over the field.</summary>
        public event DateCalendarMouseMoveHandler MouseMoveEvent;
        /// <summary>The mouse was tracked, inside the field or out of it.</summary>
        public event DateCalendarMouseOutHandler MouseOutEvent;
        /// <summary>A mouse button was released, or the focus went.</summary>
        public event DateCalendarMouseUpHandler MouseUpEvent;
        /// <summary>The field was clicked, or the calendar was asked for while PopupEnabled is False.</summary>
        public event Action PopUpEvent;

        protected override void CreateSink()
        {
            cookie = new ConnectionPointCookie(GetOcx(), new Sink(this), typeof(__DateCalendar));
        }

        protected override void DetachSink()
        {
            if (cookie != null) cookie.Disconnect();
            cookie = null;
        }

        [ClassInterface(ClassInterfaceType.None)]
        public sealed class Sink : __DateCalendar
        {
            private readonly AxDateCalendar owner;

            public Sink(AxDateCalendar owner)
            {
                this.owner = owner;
            }

            public void Change()
            {
                var handler = owner.ChangeEvent;
                if (handler != null) handler();
            }

            public void Click()
            {
                var handler = owner.ClickEvent;
                if (handler != null) handler();
            }

            public void DateUpdated()
            {
                var handler = owner.DateUpdatedEvent;
                if (handler != null) handler();
            }

            public void DblClick()
            {
                var handler = owner.DblClickEvent;
                if (handler != null) handler();
            }

            public void FocusHidden()
            {
                var handler = owner.FocusHiddenEvent;
                if (handler != null) handler();
            }

            public void FocusLost()
            {
                var handler = owner.FocusLostEvent;
                if (handler != null) handler();
            }

            public void KeyDown(ref short KeyCode, ref short Shift)
            {
                var handler = owner.KeyDownEvent;
                if (handler != null) handler(ref KeyCode, ref Shift);
            }

            public void KeyPress(ref short KeyAscii)
            {
                var handler = owner.KeyPressEvent;
                if (handler != null) handler(ref KeyAscii);
            }

            public void KeyUp(ref short KeyCode, ref short Shift)
            {
                var handler = owner.KeyUpEvent;
                if (handler != null) handler(ref KeyCode, ref Shift);
            }

            public void MouseDown(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseDownEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void MouseMove(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseMoveEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void MouseOut(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseOutEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void MouseUp(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseUpEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void PopUp()
            {
                var handler = owner.PopUpEvent;
                if (handler != null) handler();
            }
        }
    }

    /// <summary>A button that shows a colour and drops down a colour palette.</summary>
    [ComImport, Guid("E89BABC5-F4D4-4419-B4B2-90EFDC3CEC88"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface _ButtonPalette
    {
        /// <summary>Colour of the swatch that was pressed or dragged over last.</summary>
        [DispId(1)] int ActiveColor { [DispId(1)] get; }
        /// <summary>Name of the swatch that was pressed or dragged over last.</summary>
        [DispId(2)] string ActiveText { [DispId(2)] get; }
        /// <summary>Background colour of the button.</summary>
        [DispId(3)] int BackColor { [DispId(3)] get; [DispId(3)] set; }
        /// <summary>Whether BackColor shows, until the button is first repainted, in place of the system's button face.</summary>
        [DispId(4)] bool BackcolorCustom { [DispId(4)] get; [DispId(4)] set; }
        /// <summary>Whether the mouse is over the button; the same as MousePosn.</summary>
        [DispId(5)] bool bMOUSEPOSLOC { [DispId(5)] get; [DispId(5)] set; }
        /// <summary>Whether the panel drops down where there is room; else it goes up.</summary>
        [DispId(6)] bool bPOSITIONDEFAULT { [DispId(6)] get; [DispId(6)] set; }
        /// <summary>Kind of the button; kept, without effect on how it looks.</summary>
        [DispId(7)] ButtonTypesdd ButtonType { [DispId(7)] get; [DispId(7)] set; }
        /// <summary>Text on the button.</summary>
        [DispId(8)] string Caption { [DispId(8)] get; [DispId(8)] set; }
        /// <summary>Colour that the button shows.</summary>
        [DispId(9)] int Color { [DispId(9)] get; [DispId(9)] set; }
        /// <summary>Whether the user can press the button.</summary>
        [DispId(10)] bool Enabled { [DispId(10)] get; [DispId(10)] set; }
        /// <summary>Whether the button with the focus shows a focus rectangle.</summary>
        [DispId(11)] bool FocusRect { [DispId(11)] get; [DispId(11)] set; }
        /// <summary>Font of the caption.</summary>
        [DispId(12)] object Font { [DispId(12)] [return: MarshalAs(UnmanagedType.IDispatch)] get; [DispId(12)] [param: MarshalAs(UnmanagedType.IDispatch)] set; }
        /// <summary>Colour of the caption.</summary>
        [DispId(13)] int ForeColor { [DispId(13)] get; [DispId(13)] set; }
        /// <summary>Hides the panel; raises FocusHidden in any case.</summary>
        [DispId(14)] void HidePopUp();
        /// <summary>Handle of the control's window.</summary>
        [DispId(15)] int hWnd { [DispId(15)] get; }
        /// <summary>Colour that is left out of the pictures; not restored with a form.</summary>
        [DispId(16)] int MaskHLightColor { [DispId(16)] get; [DispId(16)] set; }
        /// <summary>Whether the mouse is over the button.</summary>
        [DispId(17)] bool MousePosn { [DispId(17)] get; [DispId(17)] set; }
        /// <summary>Palette that the panel shows.</summary>
        [DispId(18)] enQUILLPalette Palette { [DispId(18)] get; [DispId(18)] set; }
        /// <summary>Picture on the button.</summary>
        [DispId(19)] object Picture { [DispId(19)] [return: MarshalAs(UnmanagedType.IDispatch)] get; [DispId(19)] [param: MarshalAs(UnmanagedType.IDispatch)] set; }
        /// <summary>Picture on the button while it is disabled.</summary>
        [DispId(20)] object PictureDisabled { [DispId(20)] [return: MarshalAs(UnmanagedType.IDispatch)] get; [DispId(20)] [param: MarshalAs(UnmanagedType.IDispatch)] set; }
        /// <summary>Whether the button shows its picture.</summary>
        [DispId(21)] bool PictureVisible { [DispId(21)] get; [DispId(21)] set; }
        /// <summary>Whether a click shows the panel; else it raises PopUp.</summary>
        [DispId(22)] bool PopupEnabled { [DispId(22)] get; [DispId(22)] set; }
        /// <summary>Applies the colours of the button face again.</summary>
        [DispId(23)] void SetTheme();
        /// <summary>Whether the button shows its colour.</summary>
        [DispId(24)] bool ShowButtonColor { [DispId(24)] get; [DispId(24)] set; }
        /// <summary>Shows the panel.</summary>
        [DispId(25)] void ShowPopUp();
        /// <summary>Name of the chosen swatch.</summary>
        [DispId(26)] string Text { [DispId(26)] get; }
        /// <summary>Does what a click does.</summary>
        [DispId(27)] void UserControl_Click();
        /// <summary>Does what losing the focus does.</summary>
        [DispId(28)] void UserControl_ExitFocus();
        /// <summary>Tracks the mouse into or out of the button.</summary>
        [DispId(29)] void UserControlMouseOut(ref short Button, ref short Shift, ref float X, ref float Y);
    }

    /// <summary>Events of ButtonPalette.</summary>
    [ComImport, Guid("C7D4B36E-9DEB-4523-9071-03C34B343A21"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface __ButtonPalette
    {
        [DispId(1)] void Change(ref int sCOLORCHANGED);
        [DispId(2)] void ChangeCustom(ref int sCOLORCHANGED);
        [DispId(3)] void Click();
        [DispId(4)] void DblClick();
        [DispId(5)] void FocusHidden();
        [DispId(6)] void FocusLost();
        [DispId(7)] void KeyDown(ref short KeyCode, ref short Shift);
        [DispId(8)] void KeyPress(ref short KeyAscii);
        [DispId(9)] void KeyUp(ref short KeyCode, ref short Shift);
        [DispId(10)] void MouseDown(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(11)] void MouseMove(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(12)] void MouseOut(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(13)] void MouseUp(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(14)] void PopUp();
    }

    /// <summary>A button that shows a colour and drops down a colour palette; created by itself, without a window.</summary>
    [ComImport, Guid("5E8A5A70-BD73-405C-A794-F5E5AEE1B7FD")]
    public class ButtonPaletteClass
    {
    }

    public delegate void ButtonPaletteChangeHandler(ref int sCOLORCHANGED);
    public delegate void ButtonPaletteChangeCustomHandler(ref int sCOLORCHANGED);
    public delegate void ButtonPaletteKeyDownHandler(ref short KeyCode, ref short Shift);
    public delegate void ButtonPaletteKeyPressHandler(ref short KeyAscii);
    public delegate void ButtonPaletteKeyUpHandler(ref short KeyCode, ref short Shift);
    public delegate void ButtonPaletteMouseDownHandler(ref short Button, ref short Shift, ref float X, ref float Y);
    public delegate void ButtonPaletteMouseMoveHandler(ref short Button, ref short Shift, ref float X, ref float Y);
    public delegate void ButtonPaletteMouseOutHandler(ref short Button, ref short Shift, ref float X, ref float Y);
    public delegate void ButtonPaletteMouseUpHandler(ref short Button, ref short Shift, ref float X, ref float Y);

    /// <summary>A button that shows a colour and drops down a colour palette; to be put on a form.</summary>
    public class AxButtonPalette : AxHost
    {
        private ConnectionPointCookie cookie;

        public AxButtonPalette() : base("5E8A5A70-BD73-405C-A794-F5E5AEE1B7FD")
        {
        }

        /// <summary>The members of the control, once it is on a form that was shown.</summary>
        public _ButtonPalette Members
        {
            get { return (_ButtonPalette)GetOcx(); }
        }

        /// <summary>A swatch was pressed, dragged over or chosen.</summary>
        public event ButtonPaletteChangeHandler ChangeEvent;
        /// <summary>A colour came from the colour chooser.</summary>
        public event ButtonPaletteChangeCustomHandler ChangeCustomEvent;
        /// <summary>The button was clicked, or another swatch was chosen.</summary>
        public event Action ClickEvent;
        /// <summary>The button was double-clicked.</summary>
        public event Action DblClickEvent;
        /// <summary>The panel was hidden, or asked to be.</summary>
        public event Action FocusHiddenEvent;
        /// <summary>The control lost the focus.</summary>
        public event Action FocusLostEvent;
        /// <summary>A key went down; it has had its effect on the panel already.</summary>
        public event ButtonPaletteKeyDownHandler KeyDownEvent;
        /// <summary>Never raised.</summary>
        public event ButtonPaletteKeyPressHandler KeyPressEvent;
        /// <summary>A key was released.</summary>
        public event ButtonPaletteKeyUpHandler KeyUpEvent;
        /// <summary>A mouse button, or Space, went down on the button.</summary>
        public event ButtonPaletteMouseDownHandler MouseDownEvent;
        /// <summary>The mouse moved over the button.</summary>
        public event ButtonPaletteMouseMoveHandler MouseMoveEvent;
        /// <summary>The mouse was tracked, inside the button or out of it.</summary>
        public event ButtonPaletteMouseOutHandler MouseOutEvent;
        /// <summary>A mouse button, or Space, was released, or the focus went.</summary>
        public event ButtonPaletteMouseUpHandler MouseUpEvent;
        /// <summary>The button was clicked while PopupEnabled is False.</summary>
        public event Action PopUpEvent;

        protected override void CreateSink()
        {
            cookie = new ConnectionPointCookie(GetOcx(), new Sink(this), typeof(__ButtonPalette));
        }

        protected override void DetachSink()
        {
            if (cookie != null) cookie.Disconnect();
            cookie = null;
        }

        [ClassInterface(ClassInterfaceType.None)]
        public sealed class Sink : __ButtonPalette
        {
            private readonly AxButtonPalette owner;

            public Sink(AxButtonPalette owner)
            {
                this.owner = owner;
            }

            public void Change(ref int sCOLORCHANGED)
            {
                var handler = owner.ChangeEvent;
                if (handler != null) handler(ref sCOLORCHANGED);
            }

            public void ChangeCustom(ref int sCOLORCHANGED)
            {
                var handler = owner.ChangeCustomEvent;
                if (handler != null) handler(ref sCOLORCHANGED);
            }

            public void Click()
            {
                var handler = owner.ClickEvent;
                if (handler != null) handler();
            }

            public void DblClick()
            {
                var handler = owner.DblClickEvent;
                if (handler != null) handler();
            }

            public void FocusHidden()
            {
                var handler = owner.FocusHiddenEvent;
                if (handler != null) handler();
            }

            public void FocusLost()
            {
                var handler = owner.FocusLostEvent;
                if (handler != null) handler();
            }

            public void KeyDown(ref short KeyCode, ref short Shift)
            {
                var handler = owner.KeyDownEvent;
                if (handler != null) handler(ref KeyCode, ref Shift);
            }

            public void KeyPress(ref short KeyAscii)
            {
                var handler = owner.KeyPressEvent;
                if (handler != null) handler(ref KeyAscii);
            }

            public void KeyUp(ref short KeyCode, ref short Shift)
            {
                var handler = owner.KeyUpEvent;
                if (handler != null) handler(ref KeyCode, ref Shift);
            }

            public void MouseDown(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseDownEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void MouseMove(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseMoveEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void MouseOut(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseOutEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void MouseUp(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseUpEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void PopUp()
            {
                var handler = owner.PopUpEvent;
                if (handler != null) handler();
            }
        }
    }

    /// <summary>A small arrow of fixed size.</summary>
    [ComImport, Guid("D2C0CA84-65ED-4307-BC5A-86CFD6FAAD98"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface _ButtonArrow
    {
        /// <summary>Accepted and ignored.</summary>
        [DispId(1)] void EnabledCol(bool changeVal);
    }

    /// <summary>A small arrow of fixed size; created by itself, without a window.</summary>
    [ComImport, Guid("A1A4DFDD-1B38-4333-A49A-46DD103CA093")]
    public class ButtonArrowClass
    {
    }


    /// <summary>A small arrow of fixed size; to be put on a form.</summary>
    public class AxButtonArrow : AxHost
    {
        public AxButtonArrow() : base("A1A4DFDD-1B38-4333-A49A-46DD103CA093")
        {
        }

        /// <summary>The members of the control, once it is on a form that was shown.</summary>
        public _ButtonArrow Members
        {
            get { return (_ButtonArrow)GetOcx(); }
        }

    }

    /// <summary>An editable grid with captions, a type for each column and a text file of its own.</summary>
    [ComImport, Guid("C2AE211F-FFBB-47DC-920A-6741C42AC40E"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface _GridEdit
    {
        /// <summary>A text of the host's own, for what is dragged.</summary>
        [DispId(1)] string mstrDragInfo { [DispId(1)] get; [DispId(1)] set; }
        /// <summary>A flag of the host's own.</summary>
        [DispId(2)] bool blnPUBSHOWALARM { [DispId(2)] get; [DispId(2)] set; }
        /// <summary>Whether editors open over the cells, and keys add and delete rows; True at first.</summary>
        [DispId(3)] bool AllowGridEdit { [DispId(3)] set; }
        /// <summary>Colours the header bar.</summary>
        [DispId(4)] void barCol(ref int newcol);
        /// <summary>Colours the captions of the header bar.</summary>
        [DispId(5)] void BarColText(ref int newcol);
        /// <summary>Show/hide the Grid Header.</summary>
        [DispId(6)] bool BarHeader { [DispId(6)] get; [DispId(6)] set; }
        /// <summary>The caption of a column; empty where there is none.</summary>
        [DispId(7)] string BarHeaderCaptionRead(int colno);
        /// <summary>Gives a column its caption.</summary>
        [DispId(8)] void BarHeaderCaptionSet(int colno, string sCaption);
        /// <summary>Colour of the header bar.</summary>
        [DispId(9)] int BarHeaderColorRefresh { [DispId(9)] get; [DispId(9)] set; }
        /// <summary>The column at which the header bar was last pressed, or -1; the current column moves there.</summary>
        [DispId(10)] int BarHeaderColumn();
        /// <summary>Draws the header bar anew.</summary>
        [DispId(11)] void BarHeaderRefresh();
        /// <summary>Sorts by the column at which the header bar was last pressed, downwards at first and then in turn.</summary>
        [DispId(12)] void BarHeaderSort();
        /// <summary>Show/hide the Grid Border.</summary>
        [DispId(13)] int BorderStyle { [DispId(13)] get; [DispId(13)] set; }
        /// <summary>Closes the editor and keeps what it holds; raises ChangeEdited in any case, and Change and ChangePost where an editor was open.</summary>
        [DispId(14)] void BoxHide();
        /// <summary>Selects the text of the open editor.</summary>
        [DispId(15)] void BoxSelect();
        /// <summary>Opens the editor of the current cell and gives it the keyboard; raises Click when it has opened.</summary>
        [DispId(16)] void BoxShow();
        /// <summary>Does what a key going down in the list editor does; a key that was used comes back as 0.</summary>
        [DispId(17)] void cboLIST_KeyDown(ref short KeyCode, ref short Shift);
        /// <summary>Does what a key released in the list editor does.</summary>
        [DispId(18)] void cboLIST_KeyUp(ref short KeyCode, ref short Shift);
        /// <summary>Checks a cell for "a", "true" and 1, unchecks it for all other texts.</summary>
        [DispId(19)] void CellChkSet(int Row, int Col, string Value);
        /// <summary>Makes a cell the current one; the back colour of the whole grid.</summary>
        [DispId(20)] int CellColorReadx(int rowno, int colno);
        /// <summary>Back colour of a cell, which becomes the current one.</summary>
        [DispId(21)] void CellColorSetx(int Color, int rowno, int colno);
        /// <summary>Height of the current cell in twips.</summary>
        [DispId(22)] int CellCurrentHeight();
        /// <summary>Left edge of the current cell, in twips from the grid's.</summary>
        [DispId(23)] int CellCurrentLeft();
        /// <summary>Top edge of the current cell, in twips from the grid's.</summary>
        [DispId(24)] int CellCurrentTop();
        /// <summary>Width of the current cell in twips.</summary>
        [DispId(25)] int CellCurrentWidth();
        /// <summary>Greys a cell out, or strikes it through.</summary>
        [DispId(26)] void CellEnabledSet(int rowno, int colno, [Optional, DefaultParameterValue(false)] bool StrikeThru, [Optional, DefaultParameterValue(-2147483632)] int oleForeColor);
        /// <summary>Font and fore colour of a cell; the size in points.</summary>
        [DispId(27)] void CellFontSet(int rowno, int colno, [Optional, DefaultParameterValue("")] string sFont, [Optional, DefaultParameterValue("")] string Size, [Optional, DefaultParameterValue(false)] bool Bold, [Optional, DefaultParameterValue(false)] bool StrikeThru, [Optional, DefaultParameterValue(-2147483632)] int oleForeColor);
        /// <summary>Font and fore colour of a cell, as CellFontSet.</summary>
        [DispId(28)] void CellFormatSet(int rowno, int colno, [Optional, DefaultParameterValue("")] string sFont, [Optional, DefaultParameterValue("")] string Size, [Optional, DefaultParameterValue(false)] bool Bold, [Optional, DefaultParameterValue(false)] bool StrikeThru, [Optional, DefaultParameterValue(-2147483632)] int oleForeColor);
        /// <summary>The same as CellCurrentLeft.</summary>
        [DispId(29)] int CellLeft();
        /// <summary>Shows a named icon in a cell.</summary>
        [DispId(30)] void CellSetIcon(int colno, int rowno, string iconname);
        /// <summary>The text of a cell.</summary>
        [DispId(31)] string CellTextRead(int rowno, int colno);
        /// <summary>Text of a cell, which becomes the current one.</summary>
        [DispId(32)] void CellTextSet(int rowno, int colno, string Text);
        /// <summary>The same as CellCurrentWidth.</summary>
        [DispId(33)] int CelWidth();
        /// <summary>Raises the event Change.</summary>
        [DispId(34)] void Change();
        /// <summary>Raises the event ChangePost.</summary>
        [DispId(35)] void ChangePost();
        /// <summary>Adds a column after the last one, so many twips wide.</summary>
        [DispId(36)] void ColAdd(double ColWidth);
        /// <summary>The current column, from 0.</summary>
        [DispId(37)] int ColCurrent();
        /// <summary>Removes the last column; the only one is emptied instead.</summary>
        [DispId(38)] void ColDel();
        /// <summary>Number of columns; 2 in a new grid.</summary>
        [DispId(39)] int ColsCurrent();
        /// <summary>Makes a column the current one.</summary>
        [DispId(40)] void ColSetFocus(int colno);
        /// <summary>Sets the number of columns, 1 to 10001; the texts of the first nine then stand to the left.</summary>
        [DispId(41)] void ColsSet(int colno);
        /// <summary>The type of a column as text; empty beyond column 10000.</summary>
        [DispId(42)] string ColTypeRead(int colno);
        /// <summary>Type of a column: 0 text, 1 date, 2 read-only, 3 check box, 4 list, 5 number, 6 time.</summary>
        [DispId(43)] void ColTypeSet(int colno, int ColTypeVal);
        /// <summary>Places the captions over their columns.</summary>
        [DispId(44)] void ColumnRefreshHeaders(int colno);
        /// <summary>Shows a column, so many twips wide, or hides it.</summary>
        [DispId(45)] void ColumnVisible(int colno, int cWidth, bool cVISIBLE);
        /// <summary>Width of a column in twips; 200 and less are ignored.</summary>
        [DispId(46)] void ColWidth(int colno, double ColWidthVal);
        /// <summary>Adds an item to the list of the list editor, which all columns of lists share.</summary>
        [DispId(47)] void ComboAdd(string Item);
        /// <summary>Empties the list of the list editor.</summary>
        [DispId(48)] void ComboClear();
        /// <summary>Removes an item from the list of the list editor.</summary>
        [DispId(49)] void ComboDel(int Index);
        /// <summary>Font of the cells and captions.</summary>
        [DispId(50)] object Font { [DispId(50)] [return: MarshalAs(UnmanagedType.IDispatch)] get; [DispId(50)] [param: MarshalAs(UnmanagedType.IDispatch)] set; }
        /// <summary>Gives the control's font to the grid, the header bar and the editors.</summary>
        [DispId(51)] void FontUpdate();
        /// <summary>Does nothing; for hosts that call it.</summary>
        [DispId(52)] void GridChange();
        /// <summary>Empties all cells; rows and columns stay.</summary>
        [DispId(53)] void GridClear();
        /// <summary>Colour of the grid's lines and of what is selected.</summary>
        [DispId(54)] void GridColr(ref int newcol);
        /// <summary>Sorts the rows by the current column, downwards and upwards in turn, if the grid has the column colno.</summary>
        [DispId(55)] void GridColSort(int colno);
        /// <summary>Sorts the rows by the fifth column, downwards.</summary>
        [DispId(56)] void GridColSortInitialDate();
        /// <summary>Gives the grid the keyboard.</summary>
        [DispId(57)] void GridFocusShow();
        /// <summary>Hides the grid.</summary>
        [DispId(58)] void GridHide();
        /// <summary>Loads rows and texts from a text file; its caption.</summary>
        [DispId(59)] string GridLoad(string Path);
        /// <summary>False suspends the drawing, True resumes it.</summary>
        [DispId(60)] void GridRedraw(bool Status);
        /// <summary>Lays the control out again.</summary>
        [DispId(61)] void GridRefresh();
        /// <summary>Hides and empties the grid, and leaves it one row.</summary>
        [DispId(62)] void GridReset();
        /// <summary>Saves all texts in a text file, with a caption.</summary>
        [DispId(63)] void GridSave(string Path, string Header);
        /// <summary>Makes a cell the current one and opens its editor.</summary>
        [DispId(64)] void GridSetFocus(int colno, int rowno);
        /// <summary>Shows the grid.</summary>
        [DispId(65)] void GridShow();
        /// <summary>Handle of the control's window.</summary>
        [DispId(66)] int hWnd { [DispId(66)] get; }
        /// <summary>Whether a number is even.</summary>
        [DispId(67)] bool IsEven(int Number);
        /// <summary>The column below the mouse; -1 for none.</summary>
        [DispId(68)] int MouseCol();
        /// <summary>A number of the host's own, for where the mouse is.</summary>
        [DispId(69)] int MousePosn { [DispId(69)] get; [DispId(69)] set; }
        /// <summary>The row below the mouse; -1 for none.</summary>
        [DispId(70)] int MouseRow();
        /// <summary>Inserts a row before a row; tab characters stand between its texts.</summary>
        [DispId(71)] void RowAdd(string Text, int rowno);
        /// <summary>Inserts a row and tells nobody, for filling.</summary>
        [DispId(72)] void RowAddQuick(string Text, int rowno);
        /// <summary>The current row, from 0; -1 in a grid without rows.</summary>
        [DispId(73)] int RowCurrent();
        /// <summary>Removes a row; the only one is emptied instead, and the grid hidden.</summary>
        [DispId(74)] void RowDel(int rowno);
        /// <summary>Number of rows; 2 in a new grid.</summary>
        [DispId(75)] int RowsCurrent();
        /// <summary>Makes a row the current one.</summary>
        [DispId(76)] void RowSetFocus(int rowno);
        /// <summary>Back colour of rows 0, 2, 4 and so on; the others get the window's. Suspends the drawing.</summary>
        [DispId(77)] void RowsRefreshColors(ref int NewColor);
        /// <summary>Sets the number of rows.</summary>
        [DispId(78)] void RowsSet(int rowno);
        /// <summary>The first row that shows.</summary>
        [DispId(79)] int TopRowRead();
        /// <summary>Scrolls to a row.</summary>
        [DispId(80)] void TopRowSet(int NewValue);
    }

    /// <summary>Events of GridEdit.</summary>
    [ComImport, Guid("4CFA70EB-49AD-4741-9D4B-E7790045292D"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface __GridEdit
    {
        [DispId(1)] void CboBoxClick();
        [DispId(2)] void CboClick();
        [DispId(3)] void CellSelected();
        [DispId(4)] void Change();
        [DispId(5)] void ChangeEdited();
        [DispId(6)] void ChangePost();
        [DispId(7)] void Click();
        [DispId(8)] void DblClick();
        [DispId(9)] void DblClickExt();
        [DispId(10)] void DelRow();
        [DispId(11)] void KeyDown(ref short KeyCode, ref short Shift);
        [DispId(12)] void KeyPress(ref short KeyAscii);
        [DispId(13)] void KeyUp(ref short KeyCode, ref short Shift);
        [DispId(14)] void MouseDown(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(15)] void MouseMove(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(16)] void MouseUp(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(17)] void NewRow(ref short newno);
        [DispId(18)] void SelChange();
        [DispId(19)] void OLEDragDrop([MarshalAs(UnmanagedType.IUnknown)] ref object Data, ref int Effect, ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(20)] void NewRowSelected();
        [DispId(21)] void SortClick();
    }

    /// <summary>An editable grid with captions, a type for each column and a text file of its own; created by itself, without a window.</summary>
    [ComImport, Guid("94ED36F5-D7CA-4FA1-A8BC-18E05B0314D6")]
    public class GridEditClass
    {
    }

    public delegate void GridEditKeyDownHandler(ref short KeyCode, ref short Shift);
    public delegate void GridEditKeyPressHandler(ref short KeyAscii);
    public delegate void GridEditKeyUpHandler(ref short KeyCode, ref short Shift);
    public delegate void GridEditMouseDownHandler(ref short Button, ref short Shift, ref float X, ref float Y);
    public delegate void GridEditMouseMoveHandler(ref short Button, ref short Shift, ref float X, ref float Y);
    public delegate void GridEditMouseUpHandler(ref short Button, ref short Shift, ref float X, ref float Y);
    public delegate void GridEditNewRowHandler(ref short newno);
    public delegate void GridEditOLEDragDropHandler([MarshalAs(UnmanagedType.IUnknown)] ref object Data, ref int Effect, ref short Button, ref short Shift, ref float X, ref float Y);

    /// <summary>An editable grid with captions, a type for each column and a text file of its own; to be put on a form.</summary>
    public class AxGridEdit : AxHost
    {
        private ConnectionPointCookie cookie;

        public AxGridEdit() : base("94ED36F5-D7CA-4FA1-A8BC-18E05B0314D6")
        {
        }

        /// <summary>The members of the control, once it is on a form that was shown.</summary>
        public _GridEdit Members
        {
            get { return (_GridEdit)GetOcx(); }
        }

        /// <summary>The list editor was pressed with the mouse, before its list opens.</summary>
        public event Action CboBoxClickEvent;
        /// <summary>A person chose an item of the list editor, which is still open.</summary>
        public event Action CboClickEvent;
        /// <summary>A person made another cell the current one.</summary>
        public event Action CellSelectedEvent;
        /// <summary>Cells, rows or columns have changed; once for an edit, a paste, or what is taken back.</summary>
        public event Action ChangeEvent;
        /// <summary>An editor closes, or was asked to.</summary>
        public event Action ChangeEditedEvent;
        /// <summary>Cells have been edited, after Change; GridSetFocus sends a person back to a cell.</summary>
        public event Action ChangePostEvent;
        /// <summary>A cell was clicked, or an editor has opened.</summary>
        public event Action ClickEvent;
        /// <summary>A cell without an open editor was double-clicked.</summary>
        public event Action DblClickEvent;
        /// <summary>The open editor was double-clicked.</summary>
        public event Action DblClickExtEvent;
        /// <summary>A person deleted a row, after Change.</summary>
        public event Action DelRowEvent;
        /// <summary>A key went down in the grid or an editor, which has done with it what editing does.</summary>
        public event GridEditKeyDownHandler KeyDownEvent;
        /// <summary>A character was typed in the grid or an editor.</summary>
        public event GridEditKeyPressHandler KeyPressEvent;
        /// <summary>A key was released in the grid or an editor.</summary>
        public event GridEditKeyUpHandler KeyUpEvent;
        /// <summary>A mouse button went down on the grid.</summary>
        public event GridEditMouseDownHandler MouseDownEvent;
        /// <summary>The mouse moved over the grid.</summary>
        public event GridEditMouseMoveHandler MouseMoveEvent;
        /// <summary>A mouse button was released over the grid.</summary>
        public event GridEditMouseUpHandler MouseUpEvent;
        /// <summary>A person added a row, which is the current one; its number is 32767 at most.</summary>
        public event GridEditNewRowHandler NewRowEvent;
        /// <summary>A person selected other cells.</summary>
        public event Action SelChangeEvent;
        /// <summary>Something was dropped on the grid.</summary>
        public event GridEditOLEDragDropHandler OLEDragDropEvent;
        /// <summary>A person made a cell of another row the current one.</summary>
        public event Action NewRowSelectedEvent;
        /// <summary>The header bar was clicked.</summary>
        public event Action SortClickEvent;

        protected override void CreateSink()
        {
            cookie = new ConnectionPointCookie(GetOcx(), new Sink(this), typeof(__GridEdit));
        }

        protected override void DetachSink()
        {
            if (cookie != null) cookie.Disconnect();
            cookie = null;
        }

        [ClassInterface(ClassInterfaceType.None)]
        public sealed class Sink : __GridEdit
        {
            private readonly AxGridEdit owner;

            public Sink(AxGridEdit owner)
            {
                this.owner = owner;
            }

            public void CboBoxClick()
            {
                var handler = owner.CboBoxClickEvent;
                if (handler != null) handler();
            }

            public void CboClick()
            {
                var handler = owner.CboClickEvent;
                if (handler != null) handler();
            }

            public void CellSelected()
            {
                var handler = owner.CellSelectedEvent;
                if (handler != null) handler();
            }

            public void Change()
            {
                var handler = owner.ChangeEvent;
                if (handler != null) handler();
            }

            public void ChangeEdited()
            {
                var handler = owner.ChangeEditedEvent;
                if (handler != null) handler();
            }

            public void ChangePost()
            {
                var handler = owner.ChangePostEvent;
                if (handler != null) handler();
            }

            public void Click()
            {
                var handler = owner.ClickEvent;
                if (handler != null) handler();
            }

            public void DblClick()
            {
                var handler = owner.DblClickEvent;
                if (handler != null) handler();
            }

            public void DblClickExt()
            {
                var handler = owner.DblClickExtEvent;
                if (handler != null) handler();
            }

            public void DelRow()
            {
                var handler = owner.DelRowEvent;
                if (handler != null) handler();
            }

            public void KeyDown(ref short KeyCode, ref short Shift)
            {
                var handler = owner.KeyDownEvent;
                if (handler != null) handler(ref KeyCode, ref Shift);
            }

            public void KeyPress(ref short KeyAscii)
            {
                var handler = owner.KeyPressEvent;
                if (handler != null) handler(ref KeyAscii);
            }

            public void KeyUp(ref short KeyCode, ref short Shift)
            {
                var handler = owner.KeyUpEvent;
                if (handler != null) handler(ref KeyCode, ref Shift);
            }

            public void MouseDown(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseDownEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void MouseMove(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseMoveEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void MouseUp(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseUpEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void NewRow(ref short newno)
            {
                var handler = owner.NewRowEvent;
                if (handler != null) handler(ref newno);
            }

            public void SelChange()
            {
                var handler = owner.SelChangeEvent;
                if (handler != null) handler();
            }

            public void OLEDragDrop([MarshalAs(UnmanagedType.IUnknown)] ref object Data, ref int Effect, ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.OLEDragDropEvent;
                if (handler != null) handler(ref Data, ref Effect, ref Button, ref Shift, ref X, ref Y);
            }

            public void NewRowSelected()
            {
                var handler = owner.NewRowSelectedEvent;
                if (handler != null) handler();
            }

            public void SortClick()
            {
                var handler = owner.SortClickEvent;
                if (handler != null) handler();
            }
        }
    }

    /// <summary>A strip of tabs to choose a page by.</summary>
    [ComImport, Guid("8D1FE7AB-5C8F-448D-BB53-7FC5F599F43F"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface _PageTab
    {
        /// <summary>Page colours of the tabs, as decimal numbers with vertical bars between them; seen when the strip is laid out anew.</summary>
        [DispId(1)] string strPUBSKINCOLORPAGE { [DispId(1)] get; [DispId(1)] set; }
        /// <summary>The active tab's number in strPUBSKINCOLORPAGE, in which its page is drawn; 0: drawn in PageColor.</summary>
        [DispId(2)] int lngSELECTEDPAGECOLOR { [DispId(2)] get; [DispId(2)] set; }
        /// <summary>Index of the active tab, from 1; 0: none. An index without a tab is ignored. The value last read is selected again when the tabs are made anew.</summary>
        [DispId(3)] int ActiveTab { [DispId(3)] get; [DispId(3)] set; }
        /// <summary>The caption of a tab; empty where there is none.</summary>
        [DispId(4)] string ActiveTabNameGet(int Index);
        /// <summary>Makes the last tab with exactly this caption the active one; an empty name none.</summary>
        [DispId(5)] void ActiveTabNameSet(string ActiveTabName);
        /// <summary>The captions with commas between them; putting them makes the tabs anew. Lines count as tabs, too, with captions "0". Tabs of AddTab are not in it.</summary>
        [DispId(6)] string ActiveTabs { [DispId(6)] get; [DispId(6)] set; }
        /// <summary>Appends a tab and makes it the active one; an empty caption becomes "Tab" and its index.</summary>
        [DispId(7)] void AddTab(string sCaption);
        /// <summary>Colour of the strip behind the tabs.</summary>
        [DispId(8)] int BackColorPage { [DispId(8)] get; [DispId(8)] set; }
        /// <summary>Shows all tabs disabled, until a tab is selected or another look is asked for.</summary>
        [DispId(9)] void ImageDis();
        /// <summary>Shows the active tab highlighted, until a tab is selected or another look is asked for.</summary>
        [DispId(10)] void ImageHLight();
        /// <summary>Shows the tabs as usual, the active one selected.</summary>
        [DispId(11)] void ImageSel();
        /// <summary>Shows the strip as if the mouse were elsewhere.</summary>
        [DispId(12)] void ObjectMouseUp();
        /// <summary>Colour of the shown page. Laying out anew, after loading as well, puts the active tab's page colour or PageMainColor here: what is stored is what was shown.</summary>
        [DispId(13)] int PageColor { [DispId(13)] get; [DispId(13)] set; }
        /// <summary>Colour of the captions.</summary>
        [DispId(14)] int TextColor { [DispId(14)] get; [DispId(14)] set; }
        /// <summary>Page colour of tabs without one of their own; not stored with a form.</summary>
        [DispId(15)] int PageMainColor { [DispId(15)] get; [DispId(15)] set; }
        /// <summary>Repaints the strip.</summary>
        [DispId(16)] void Refresh();
        /// <summary>Font name and size in points of all captions, and of those to come.</summary>
        [DispId(17)] void SetFont(string New_Font, string New_FontSize);
        /// <summary>Kept for the host; nothing is drawn in it.</summary>
        [DispId(18)] string TabColor { [DispId(18)] get; [DispId(18)] set; }
    }

    /// <summary>Events of PageTab.</summary>
    [ComImport, Guid("78B2A11B-B298-40BF-855B-8CC4431068F8"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface __PageTab
    {
        [DispId(1)] void Click(ref string TName);
        [DispId(2)] void dlbClick();
        [DispId(3)] void MouseDown(ref short Button, ref short Shift, ref float X, ref float Y, ref string ActiveTab);
        [DispId(4)] void MouseDownback(ref short Button, ref short Shift, ref float X, ref float Y, ref string ActiveTab);
        [DispId(5)] void MouseMove(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(6)] void MouseUp(ref short Button, ref short Shift, ref float X, ref float Y);
        [DispId(7)] void Show();
    }

    /// <summary>A strip of tabs to choose a page by; created by itself, without a window.</summary>
    [ComImport, Guid("292DCDD0-338C-4D39-A021-D73219080498")]
    public class PageTabClass
    {
    }

    public delegate void PageTabClickHandler(ref string TName);
    public delegate void PageTabMouseDownHandler(ref short Button, ref short Shift, ref float X, ref float Y, ref string ActiveTab);
    public delegate void PageTabMouseDownbackHandler(ref short Button, ref short Shift, ref float X, ref float Y, ref string ActiveTab);
    public delegate void PageTabMouseMoveHandler(ref short Button, ref short Shift, ref float X, ref float Y);
    public delegate void PageTabMouseUpHandler(ref short Button, ref short Shift, ref float X, ref float Y);

    /// <summary>A strip of tabs to choose a page by; to be put on a form.</summary>
    public class AxPageTab : AxHost
    {
        private ConnectionPointCookie cookie;

        public AxPageTab() : base("292DCDD0-338C-4D39-A021-D73219080498")
        {
        }

        /// <summary>The members of the control, once it is on a form that was shown.</summary>
        public _PageTab Members
        {
            get { return (_PageTab)GetOcx(); }
        }

        /// <summary>A person chose a tab; its caption.</summary>
        public event PageTabClickHandler ClickEvent;
        /// <summary>The strip was double-clicked.</summary>
        public event Action dlbClickEvent;
        /// <summary>A mouse button went down on a tab; X and Y in twips, the active tab's caption.</summary>
        public event PageTabMouseDownHandler MouseDownEvent;
        /// <summary>A mouse button went down on the strip beside the tabs.</summary>
        public event PageTabMouseDownbackHandler MouseDownbackEvent;
        /// <summary>The mouse moved over the strip.</summary>
        public event PageTabMouseMoveHandler MouseMoveEvent;
        /// <summary>A mouse button was released.</summary>
        public event PageTabMouseUpHandler MouseUpEvent;
        /// <summary>Follows Click: the page of the active tab is to be shown.</summary>
        public event Action ShowEvent;

        protected override void CreateSink()
        {
            cookie = new ConnectionPointCookie(GetOcx(), new Sink(this), typeof(__PageTab));
        }

        protected override void DetachSink()
        {
            if (cookie != null) cookie.Disconnect();
            cookie = null;
        }

        [ClassInterface(ClassInterfaceType.None)]
        public sealed class Sink : __PageTab
        {
            private readonly AxPageTab owner;

            public Sink(AxPageTab owner)
            {
                this.owner = owner;
            }

            public void Click(ref string TName)
            {
                var handler = owner.ClickEvent;
                if (handler != null) handler(ref TName);
            }

            public void dlbClick()
            {
                var handler = owner.dlbClickEvent;
                if (handler != null) handler();
            }

            public void MouseDown(ref short Button, ref short Shift, ref float X, ref float Y, ref string ActiveTab)
            {
                var handler = owner.MouseDownEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y, ref ActiveTab);
            }

            public void MouseDownback(ref short Button, ref short Shift, ref float X, ref float Y, ref string ActiveTab)
            {
                var handler = owner.MouseDownbackEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y, ref ActiveTab);
            }

            public void MouseMove(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseMoveEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void MouseUp(ref short Button, ref short Shift, ref float X, ref float Y)
            {
                var handler = owner.MouseUpEvent;
                if (handler != null) handler(ref Button, ref Shift, ref X, ref Y);
            }

            public void Show()
            {
                var handler = owner.ShowEvent;
                if (handler != null) handler();
            }
        }
    }

    /// <summary>An etched horizontal separator line.</summary>
    [ComImport, Guid("F81911B9-10C4-4B29-BF2D-8B903922F816"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
    public interface _lns
    {
        /// <summary>Tints both lines from the base colour.</summary>
        [DispId(1)] void ColorRefresh();
    }

    /// <summary>An etched horizontal separator line; created by itself, without a window.</summary>
    [ComImport, Guid("B2D1F051-31B4-412B-9845-C9CDA84ABA7C")]
    public class lnsClass
    {
    }


    /// <summary>An etched horizontal separator line; to be put on a form.</summary>
    public class Axlns : AxHost
    {
        public Axlns() : base("B2D1F051-31B4-412B-9845-C9CDA84ABA7C")
        {
        }

        /// <summary>The members of the control, once it is on a form that was shown.</summary>
        public _lns Members
        {
            get { return (_lns)GetOcx(); }
        }

    }

}
