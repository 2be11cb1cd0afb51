// A form with a grid and a number field, made in code. In Lazarus: a project of type application with the package
// "LazActiveX", this file, and the folder "imports" among the units. It runs where the controls are registered.
program order;

{$MODE DELPHI}

uses
  Interfaces, Forms, Controls, StdCtrls, Classes, SysUtils, ActiveXContainer, OBKCTRLS;

type
  TOrderForm = class(TForm)
  private
    FGrid: TGridEdit;
    FQuantity: TUpDownTextBox;
    FSaid: TLabel;
    procedure QuantityChanged(Sender: TObject);
    procedure GridChanged(Sender: TObject);
    function Place(Control: TAutomationControl; ALeft, ATop, AWidth, AHeight: Integer): TActiveXContainer;
  public
    constructor CreateNew(AOwner: TComponent; Num: Integer = 0); override;
    destructor Destroy; override;
  end;

constructor TOrderForm.CreateNew(AOwner: TComponent; Num: Integer);
begin
  inherited CreateNew(AOwner, Num);
  Caption := 'Order';
  SetBounds(100, 100, 480, 340);
  FSaid := TLabel.Create(Self);
  FSaid.Parent := Self;
  FSaid.SetBounds(120, 14, 300, 20);
  FQuantity := TUpDownTextBox.Create;
  FGrid := TGridEdit.Create;
  Place(FQuantity, 10, 10, 100, 24);
  Place(FGrid, 10, 44, 460, 280);
  FQuantity.OnChange := QuantityChanged;
  FGrid.OnChangePost := GridChanged;
  FQuantity.Max := 100;
  FQuantity.Interval := 1;
  FQuantity.Text := '12';
  FGrid.ColsSet(2);
  FGrid.RowsSet(0);
  FGrid.BarHeaderCaptionSet(0, 'Article');
  FGrid.BarHeaderCaptionSet(1, 'Quantity');
  FGrid.RowAddQuick('Pencil'#9'12', 0);
  FGrid.RowAddQuick('Eraser'#9'3', 1);
end;

destructor TOrderForm.Destroy;
begin
  FQuantity.Free;
  FGrid.Free;
  inherited Destroy;
end;

function TOrderForm.Place(Control: TAutomationControl; ALeft, ATop, AWidth, AHeight: Integer): TActiveXContainer;
begin
  Result := TActiveXContainer.Create(Self);
  Result.Parent := Self;
  Result.SetBounds(ALeft, ATop, AWidth, AHeight);
  Result.ComServer := Control.Automation;
  Result.Active := True;
end;

procedure TOrderForm.QuantityChanged(Sender: TObject);
begin
  Caption := 'Order of ' + string(FQuantity.Text);
end;

procedure TOrderForm.GridChanged(Sender: TObject);
begin
  FSaid.Caption := 'The cell holds ' + string(FGrid.CellTextRead(FGrid.RowCurrent, FGrid.ColCurrent));
end;

var
  Form: TOrderForm;

begin
  Application.Initialize;
  Form := TOrderForm.CreateNew(Application);
  Form.Show;
  while Form.Visible do
    Application.HandleMessage;
end.
