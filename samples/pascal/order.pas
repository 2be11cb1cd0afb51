// A grid without a form: fills it, reads it back, and hears the events of a number field. Compile it with Free Pascal
// or Delphi, with the folder "imports" among the units. It runs where the controls are registered.
program order;

{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}
{$APPTYPE CONSOLE}

uses
  {$IFDEF FPC}ActiveX, SysUtils{$ELSE}Winapi.ActiveX, System.SysUtils{$ENDIF}, OBKCTRLS;

type
  TOrder = class
  private
    FGrid: TGridEdit;
    FQuantity: TUpDownTextBox;
    FChanges: Integer;
    procedure QuantityChanged(Sender: TObject);
  public
    constructor Create;
    destructor Destroy; override;
    procedure Run;
  end;

constructor TOrder.Create;
begin
  inherited Create;
  FGrid := TGridEdit.Create;
  FQuantity := TUpDownTextBox.Create;
  FQuantity.OnChange := QuantityChanged;
end;

destructor TOrder.Destroy;
begin
  FQuantity.Free;
  FGrid.Free;
  inherited Destroy;
end;

procedure TOrder.QuantityChanged(Sender: TObject);
begin
  Inc(FChanges);
  WriteLn('quantity: ', FQuantity.Text);
end;

procedure TOrder.Run;
const
  Articles: array[0..2, 0..1] of string = (('Pencil', '12'), ('Eraser', '3'), ('Ruler', '7'));
var
  Row, Column: Integer;
  Extra: WideString;
begin
  FGrid.RowsSet(3);
  FGrid.ColsSet(2);
  for Row := 0 to 2 do
    for Column := 0 to 1 do
      FGrid.CellTextSet(Row, Column, Articles[Row, Column]);
  WriteLn(FGrid.RowsCurrent, ' rows, the second article is ', FGrid.CellTextRead(1, 0));

  FQuantity.Max := 100;
  FQuantity.Text := FGrid.CellTextRead(0, 1);
  Extra := '';
  if FQuantity.KeyLock(Ord('7'), False, Extra) = Ord('7') then
    WriteLn('a digit is taken');
  if FChanges = 1 then
    WriteLn('ok');
end;

var
  Sample: TOrder;

begin
  CoInitialize(nil);
  try
    Sample := TOrder.Create;
    try
      Sample.Run;
    finally
      Sample.Free;
    end;
  finally
    CoUninitialize;
  end;
end.
