#include "library/import_writers.h"

#include "library/class_facts.h"

namespace obk {

namespace {

Text typeOf(ValueType type) {
    switch (type) {
        case ValueType::empty:
            return u"void";
        case ValueType::boolean:
            return u"bool";
        case ValueType::byte:
            return u"byte";
        case ValueType::integer:
            return u"short";
        case ValueType::longInteger:
        case ValueType::colour:  // as the controls pass it: system colours are negative
            return u"int";
        case ValueType::single:
            return u"float";
        case ValueType::doubleFloat:
            return u"double";
        case ValueType::text:
            return u"string";
        case ValueType::font:
        case ValueType::picture:
        case ValueType::object:
            return u"object";
    }
    return u"object";
}

// How an object is passed; everything else is passed by its type.
Text marshalling(ValueType type, TextView target = {}) {
    if (type == ValueType::font || type == ValueType::picture)
        return u"[" + Text(target) + u"MarshalAs(UnmanagedType.IDispatch)] ";
    if (type == ValueType::object) return u"[" + Text(target) + u"MarshalAs(UnmanagedType.IUnknown)] ";
    return {};
}

// A name of ours may be a word of the language.
Text identifier(const Text& name) {
    for (const TextView word : {u"value", u"event", u"object", u"params", u"ref", u"out", u"in", u"string"}) {
        if (name == word) return u"@" + name;
    }
    return name;
}

Text literal(const Value& value) {
    if (const auto* text = std::get_if<Text>(&value)) return u"\"" + *text + u"\"";
    if (const auto* boolean = std::get_if<bool>(&value)) return *boolean ? u"true" : u"false";
    if (const auto* colour = std::get_if<OleColour>(&value))
        return decimalText(static_cast<int32_t>(colour->value));
    return toText(value).value_or(u"0");
}

class CsharpWriter {
public:
    Text write(const Library& library) {
        line(u"// " + library.description + u" " + library.release +
             u", made from the tables that the type library is made from: no importer is needed.");
        line(
            u"// For each control: its members and events, a class to create, and a control for Windows Forms.");
        line(u"using System;");
        line(u"using System.Runtime.InteropServices;");
        line(u"using System.Windows.Forms;");
        line();
        line(u"namespace " + library.name);
        line(u"{");
        for (const Enumeration* enumeration : library.enumerations) {
            summary(u"    ", enumeration->help);
            line(u"    public enum " + enumeration->name);
            line(u"    {");
            for (const EnumerationValue& value : enumeration->values)
                line(u"        " + value.name + u" = " + decimalText(value.value) + u",");
            line(u"    }");
            line();
        }
        for (const ControlTable* table : publicControls(library)) write(*table);
        line(u"}");
        return std::move(text_);
    }

private:
    void line(const Text& content = {}) {
        text_ += content;
        text_ += u'\n';
    }

    void summary(const Text& indent, const Text& help) {
        Text escaped;
        for (const char16_t unit : help) {
            if (unit == u'<' || unit == u'&')
                escaped += unit == u'<' ? u"&lt;" : u"&amp;";
            else
                escaped += unit;
        }
        line(indent + u"/// <summary>" + escaped + u".</summary>");
    }

    static Text parameters(const Member& member) {
        Text list;
        for (const Parameter& parameter : member.parameters) {
            if (!list.empty()) list += u", ";
            if (parameter.mayBeLeftOut())
                list +=
                    u"[Optional, DefaultParameterValue(" + literal(valueOf(parameter.defaultValue)) + u")] ";
            list += marshalling(parameter.type) + (parameter.byReference ? u"ref " : u"") +
                    typeOf(parameter.type) + u" " + identifier(parameter.name);
        }
        return list;
    }

    static Text arguments(const Member& member) {
        Text list;
        for (const Parameter& parameter : member.parameters)
            list += (list.empty() ? u"" : u", ") + Text(parameter.byReference ? u"ref " : u"") +
                    identifier(parameter.name);
        return list;
    }

    void beginInterface(const Guid& id, const Text& name) {
        line(u"    [ComImport, Guid(\"" + guidDigits(id) +
             u"\"), InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]");
        line(u"    public interface " + name);
        line(u"    {");
    }

    void writeProperty(const Member& member) {
        const Text number = u"[DispId(" + decimalText(member.number) + u")] ";
        const Text type = member.enumeration ? member.enumeration->name : typeOf(member.type);
        line(u"        " + number + type + u" " + member.name + u" { " +
             (member.get ? number + marshalling(member.type, u"return: ") + u"get; " : Text()) +
             (member.put ? number + marshalling(member.type, u"param: ") + u"set; " : Text()) + u"}");
    }

    void writeMethod(const Member& member) {
        line(u"        [DispId(" + decimalText(member.number) + u")] " +
             marshalling(member.type, u"return: ") + typeOf(member.type) + u" " + member.name + u"(" +
             parameters(member) + u");");
    }

    void write(const ControlTable& table) {
        summary(u"    ", table.help);
        beginInterface(table.interfaceId, u"_" + table.name);
        for (const Member& member : table.members) {
            summary(u"        ", member.help);
            member.kind == MemberKind::property ? writeProperty(member) : writeMethod(member);
        }
        line(u"    }");
        line();
        if (!table.events.empty()) {
            summary(u"    ", u"Events of " + table.name);
            beginInterface(table.eventInterfaceId, u"__" + table.name);
            for (const Member& event : table.events) writeMethod(event);
            line(u"    }");
            line();
        }
        summary(u"    ", table.help + u"; created by itself, without a window");
        line(u"    [ComImport, Guid(\"" + guidDigits(table.classId) + u"\")]");
        line(u"    public class " + table.name + u"Class");
        line(u"    {");
        line(u"    }");
        line();
        for (const Member& event : table.events) {
            if (!event.parameters.empty())
                line(u"    public delegate void " + table.name + event.name + u"Handler(" +
                     parameters(event) + u");");
        }
        line();
        writeFormsControl(table);
    }

    void writeFormsControl(const ControlTable& table) {
        summary(u"    ", table.help + u"; to be put on a form");
        line(u"    public class Ax" + table.name + u" : AxHost");
        line(u"    {");
        if (!table.events.empty()) {
            line(u"        private ConnectionPointCookie cookie;");
            line();
        }
        line(u"        public Ax" + table.name + u"() : base(\"" + guidDigits(table.classId) + u"\")");
        line(u"        {");
        line(u"        }");
        line();
        summary(u"        ", u"The members of the control, once it is on a form that was shown");
        line(u"        public _" + table.name + u" Members");
        line(u"        {");
        line(u"            get { return (_" + table.name + u")GetOcx(); }");
        line(u"        }");
        line();
        for (const Member& event : table.events) {
            summary(u"        ", event.help);
            line(u"        public event " +
                 (event.parameters.empty() ? Text(u"Action") : table.name + event.name + u"Handler") + u" " +
                 event.name + u"Event;");
        }
        if (!table.events.empty()) writeSink(table);
        line(u"    }");
        line();
    }

    void writeSink(const ControlTable& table) {
        line();
        line(u"        protected override void CreateSink()");
        line(u"        {");
        line(u"            cookie = new ConnectionPointCookie(GetOcx(), new Sink(this), typeof(__" +
             table.name + u"));");
        line(u"        }");
        line();
        line(u"        protected override void DetachSink()");
        line(u"        {");
        line(u"            if (cookie != null) cookie.Disconnect();");
        line(u"            cookie = null;");
        line(u"        }");
        line();
        line(u"        [ClassInterface(ClassInterfaceType.None)]");
        line(u"        public sealed class Sink : __" + table.name);
        line(u"        {");
        line(u"            private readonly Ax" + table.name + u" owner;");
        line();
        line(u"            public Sink(Ax" + table.name + u" owner)");
        line(u"            {");
        line(u"                this.owner = owner;");
        line(u"            }");
        for (const Member& event : table.events) {
            line();
            line(u"            public void " + event.name + u"(" + parameters(event) + u")");
            line(u"            {");
            line(u"                var handler = owner." + event.name + u"Event;");
            line(u"                if (handler != null) handler(" + arguments(event) + u");");
            line(u"            }");
        }
        line(u"        }");
    }

    Text text_;
};

}  // namespace

std::string writeCsharpSource(const Library& library) {
    return toUtf8(CsharpWriter().write(library));
}

}  // namespace obk
