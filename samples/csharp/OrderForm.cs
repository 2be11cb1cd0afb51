// A form with a number field and a grid. Compile it with the source beside it, for the bitness of the registered server:
//
//   csc /target:winexe /platform:x64 /reference:System.Windows.Forms.dll /reference:System.Drawing.dll
//       OrderForm.cs ..\..\imports\OBKCTRLS.cs
using System;
using System.Drawing;
using System.Windows.Forms;
using OBKCTRLS;

public class OrderForm : Form
{
    private readonly AxUpDownTextBox quantity = new AxUpDownTextBox();
    private readonly AxGridEdit grid = new AxGridEdit();

    public OrderForm()
    {
        Text = "Order";
        ClientSize = new Size(420, 300);
        quantity.Bounds = new Rectangle(10, 10, 100, 24);
        grid.Bounds = new Rectangle(10, 44, 400, 246);
        quantity.ChangeEvent += delegate { Text = "Order of " + quantity.Members.Text; };
        grid.KeyDownEvent += GridKeyDown;
        Controls.Add(quantity);
        Controls.Add(grid);
    }

    protected override void OnShown(EventArgs e)
    {
        base.OnShown(e);
        quantity.Members.Max = 100;
        quantity.Members.Interval = 1;
        quantity.Members.Text = "12";
        grid.Members.RowsSet(1);
        grid.Members.ColsSet(2);
        grid.Members.CellTextSet(0, 0, "Pencil");
        grid.Members.CellFontSet(0, 0, Bold: true);
    }

    // F1 is the form's: the grid shall not have it.
    private void GridKeyDown(ref short keyCode, ref short shift)
    {
        if (keyCode == (short)Keys.F1) keyCode = 0;
    }

    [STAThread]
    public static void Main()
    {
        Application.EnableVisualStyles();
        Application.Run(new OrderForm());
    }
}
