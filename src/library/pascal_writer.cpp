#include "library/import_writers.h"

#include "library/class_facts.h"

#include <algorithm>

namespace obk {

namespace {

constexpr TextView declarations =
    uR"(
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
)";

constexpr TextView foundation =
    uR"(
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
)";

Text typeOf(ValueType type) {
    switch (type) {
        case ValueType::empty:
            return {};
        case ValueType::boolean:
            return u"WordBool";
        case ValueType::byte:
            return u"Byte";
        case ValueType::integer:
            return u"SmallInt";
        case ValueType::longInteger:
        case ValueType::colour:  // as the controls pass it: system colours are negative
            return u"LongInt";
        case ValueType::single:
            return u"Single";
        case ValueType::doubleFloat:
            return u"Double";
        case ValueType::text:
            return u"WideString";
        case ValueType::font:
        case ValueType::picture:
            return u"IDispatch";
        case ValueType::object:
            return u"IUnknown";
    }
    return {};
}

// Where an event finds an argument: P and the type, for all that are in the language.
Text pointerTo(ValueType type) {
    return type == ValueType::object ? Text(u"PUnknownReference") : u"P" + typeOf(type);
}

// A name of ours may be a word of the language.
Text identifier(const Text& name) {
    for (const TextView word :
         {u"Type", u"To", u"Label", u"Begin", u"End", u"Set", u"Unit", u"String", u"Object"}) {
        if (equalIgnoringCase(name, word)) return name + u"_";
    }
    return name;
}

Text literal(const Value& value) {
    if (const auto* text = std::get_if<Text>(&value)) return u"'" + *text + u"'";
    if (const auto* boolean = std::get_if<bool>(&value)) return *boolean ? u"True" : u"False";
    if (const auto* colour = std::get_if<OleColour>(&value))
        return decimalText(static_cast<int32_t>(colour->value));
    return toText(value).value_or(u"0");
}

enum class Defaults { without, with };

Text parameters(const Member& member, Defaults defaults) {
    Text list;
    for (const Parameter& parameter : member.parameters) {
        list += (list.empty() ? u"" : u"; ") + Text(parameter.byReference ? u"var " : u"const ") +
                identifier(parameter.name) + u": " + typeOf(parameter.type);
        if (parameter.mayBeLeftOut() && defaults == Defaults::with)
            list += u" = " + literal(valueOf(parameter.defaultValue));
    }
    return list.empty() ? list : u"(" + list + u")";
}

Text heading(const Member& member, const Text& name, Defaults defaults) {
    const bool answers = member.type != ValueType::empty;
    return (answers ? u"function " : u"procedure ") + name + parameters(member, defaults) +
           (answers ? u": " + typeOf(member.type) : Text()) + u";";
}

Text propertyType(const Member& member) {
    return member.enumeration ? member.enumeration->name : typeOf(member.type);
}

class PascalWriter {
public:
    Text write(const Library& library) {
        const auto controls = publicControls(library);
        line(u"// " + library.description + u" " + library.release +
             u", made from the tables that the type library is made from: no importer is needed.");
        line(u"// For each control: its interface, and a class with its members and events.");
        line(u"unit " + library.name + u";");
        line();
        line(u"{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}");
        line();
        line(u"interface");
        line();
        line(u"uses");
        line(
            u"  {$IFDEF FPC}Windows, ActiveX, ComObj, SysUtils{$ELSE}Winapi.Windows, Winapi.ActiveX, System.Win.ComObj, System.SysUtils{$ENDIF};");
        line();
        line(u"const");
        for (const ControlTable* table : controls) {
            line(u"  CLASS_" + table->name + u": TGUID = '{" + guidDigits(table->classId) + u"}';");
            line(u"  EVENTS_" + table->name + u": TGUID = '{" + guidDigits(table->eventInterfaceId) + u"}';");
        }
        for (const Enumeration* enumeration : library.enumerations) {
            line();
            line(u"type");
            line(u"  // " + enumeration->help + u".");
            line(u"  " + enumeration->name + u" = LongInt;");
            line();
            line(u"const");
            for (const EnumerationValue& value : enumeration->values)
                line(u"  " + value.name + u" = " + decimalText(value.value) + u";");
        }
        line();
        line(u"type");
        for (const ControlTable* table : controls) writeInterface(*table);
        text_ += declarations;
        for (const ControlTable* table : controls) declareClass(*table);
        line();
        line(u"implementation");
        text_ += foundation;
        for (const ControlTable* table : controls) defineClass(*table);
        line();
        line(u"end.");
        return std::move(text_);
    }

private:
    void line(const Text& content = {}) {
        text_ += content;
        text_ += u'\n';
    }

    void writeInterface(const ControlTable& table) {
        line(u"  // " + table.help + u".");
        line(u"  _" + table.name + u" = dispinterface");
        line(u"    ['{" + guidDigits(table.interfaceId) + u"}']");
        for (const Member& member : table.members) {
            const Text number = u" dispid " + decimalText(member.number) + u";";
            if (member.kind == MemberKind::property)
                line(u"    property " + identifier(member.name) + u": " + propertyType(member) +
                     (member.put ? u"" : u" readonly") + (member.get ? u"" : u" writeonly") + number);
            else
                line(u"    " + heading(member, identifier(member.name), Defaults::without) + number);
        }
        line(u"  end;");
        line();
    }

    static Text eventType(const ControlTable& table, const Member& event) {
        return event.parameters.empty() ? Text(u"TControlEvent") : u"T" + table.name + event.name;
    }

    void declareClass(const ControlTable& table) {
        line();
        for (const Member& event : table.events) {
            if (event.parameters.empty()) continue;
            Text list = parameters(event, Defaults::without);
            list.insert(1, u"Sender: TObject; ");
            line(u"  " + eventType(table, event) + u" = procedure" + list + u" of object;");
        }
        line();
        line(u"  // " + table.help + u".");
        line(u"  T" + table.name + u" = class(TAutomationControl)");
        line(u"  private");
        for (const Member& event : table.events)
            line(u"    FOn" + event.name + u": " + eventType(table, event) + u";");
        for (const Member& member : table.members) {
            if (member.kind != MemberKind::property) continue;
            if (member.get) line(u"    function Get" + member.name + u": " + propertyType(member) + u";");
            if (member.put)
                line(u"    procedure Set" + member.name + u"(const Value: " + propertyType(member) + u");");
        }
        line(u"  protected");
        line(u"    procedure Raise_(Number: Integer; Arguments: Pointer; Count: Integer); override;");
        line(u"    class function ControlClass: TGUID; override;");
        line(u"    class function EventsInterface: TGUID; override;");
        line(u"  public");
        for (const Member& member : table.members) {
            line(u"    // " + member.help + u".");
            if (member.kind == MemberKind::property)
                line(u"    property " + identifier(member.name) + u": " + propertyType(member) +
                     (member.get ? u" read Get" + member.name : Text()) +
                     (member.put ? u" write Set" + member.name : Text()) + u";");
            else
                line(u"    " + heading(member, identifier(member.name), Defaults::with));
        }
        for (const Member& event : table.events) {
            line(u"    // " + event.help + u".");
            line(u"    property On" + event.name + u": " + eventType(table, event) + u" read FOn" +
                 event.name + u" write FOn" + event.name + u";");
        }
        line(u"  end;");
    }

    void begin(const Text& head) {
        line();
        line(head);
        line(u"begin");
    }

    void defineClass(const ControlTable& table) {
        const Text type = u"T" + table.name;
        begin(u"class function " + type + u".ControlClass: TGUID;");
        line(u"  Result := CLASS_" + table.name + u";");
        line(u"end;");
        begin(u"class function " + type + u".EventsInterface: TGUID;");
        line(u"  Result := EVENTS_" + table.name + u";");
        line(u"end;");
        for (const Member& member : table.members)
            member.kind == MemberKind::property ? defineProperty(table, member) : defineMethod(table, member);
        defineRaise(table);
    }

    // How the class reaches a member of its interface.
    static Text memberOf(const ControlTable& table, const Member& member) {
        return u"_" + table.name + u"(Automation)." + identifier(member.name);
    }

    void defineProperty(const ControlTable& table, const Member& member) {
        if (member.get) {
            begin(u"function T" + table.name + u".Get" + member.name + u": " + propertyType(member) + u";");
            line(u"  Result := " + memberOf(table, member) + u";");
            line(u"end;");
        }
        if (member.put) {
            begin(u"procedure T" + table.name + u".Set" + member.name + u"(const Value: " +
                  propertyType(member) + u");");
            line(u"  " + memberOf(table, member) + u" := Value;");
            line(u"end;");
        }
    }

    void defineMethod(const ControlTable& table, const Member& member) {
        Text arguments;
        for (const Parameter& parameter : member.parameters)
            arguments += (arguments.empty() ? u"" : u", ") + identifier(parameter.name);
        if (!arguments.empty()) arguments = u"(" + arguments + u")";
        begin(heading(member, u"T" + table.name + u"." + identifier(member.name), Defaults::without));
        line(u"  " + Text(member.type == ValueType::empty ? u"" : u"Result := ") + memberOf(table, member) +
             arguments + u";");
        line(u"end;");
    }

    void defineRaise(const ControlTable& table) {
        begin(u"procedure T" + table.name + u".Raise_(Number: Integer; Arguments: Pointer; Count: Integer);");
        if (!table.events.empty()) {
            line(u"  case Number of");
            for (const Member& event : table.events) {
                const Text count = decimalText(static_cast<int64_t>(event.parameters.size()));
                line(u"    " + decimalText(event.number) + u": if Assigned(FOn" + event.name +
                     u") and (Count = " + count + u") then");
                Text values = u"Self";
                for (size_t at = 0; at < event.parameters.size(); ++at)
                    values += u", " + pointerTo(event.parameters[at].type) + u"(DataOf(Arguments, Count, " +
                              decimalText(static_cast<int64_t>(at)) + u"))^";
                line(u"      FOn" + event.name + u"(" + values + u");");
            }
            line(u"  end;");
        }
        line(u"end;");
    }

    Text text_;
};

}  // namespace

std::string writePascalUnit(const Library& library) {
    return toUtf8(PascalWriter().write(library));
}

}  // namespace obk
