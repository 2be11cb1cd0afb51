#include "library/idl_writer.h"

#include "library/class_facts.h"

namespace obk {

namespace {

// How a type is written for hosts. A colour has a name of its own there, so that property browsers offer
// colours.
Text idlName(ValueType type) {
    switch (type) {
        case ValueType::empty:
            return u"void";
        case ValueType::boolean:
            return u"VARIANT_BOOL";
        case ValueType::byte:
            return u"unsigned char";
        case ValueType::integer:
            return u"short";
        case ValueType::longInteger:
            return u"long";
        case ValueType::single:
            return u"float";
        case ValueType::doubleFloat:
            return u"double";
        case ValueType::text:
            return u"BSTR";
        case ValueType::colour:
            return u"OLE_COLOR";
        case ValueType::font:
            return u"IFontDisp*";
        case ValueType::picture:
            return u"IPictureDisp*";
        case ValueType::object:
            return u"IUnknown*";
    }
    return u"void";
}

Text typeName(const Member& member) {
    return member.enumeration ? Text(member.enumeration->name) : idlName(member.type);
}

Text quoted(TextView text) {
    Text result = u"\"";
    for (const char16_t unit : text) {
        if (unit == u'"' || unit == u'\\') result += u'\\';
        result += unit;
    }
    return result + u"\"";
}

// A value as IDL writes it.
Text constant(const Value& value) {
    if (const auto* text = std::get_if<Text>(&value)) return quoted(*text);
    return toText(value).value_or(u"0");
}

class IdlWriter {
public:
    explicit IdlWriter(const Library& library) : library_(library) {}

    Text write() {
        line(
            u"// The contract between the controls and their hosts. Made from the member tables, and frozen: a number or");
        line(u"// a signature that hosts were built with never changes.");
        line(u"import \"automation.idl\";");
        line();
        line(u"[");
        line(u"    uuid(" + guidDigits(library_.id) + u"),");
        line(u"    version(" + libraryVersion(library_) + u"),");
        line(u"    helpstring(" + quoted(library_.description + u" " + library_.release) + u")");
        line(u"]");
        line(u"library " + library_.name + u" {");
        line(u"    importlib(\"stdole2.tlb\");");
        for (const Enumeration* enumeration : library_.enumerations) write(*enumeration);
        for (const ControlTable* table : publicControls(library_)) write(*table);
        line(u"}");
        return std::move(text_);
    }

private:
    void line(TextView content = {}) {
        text_ += content;
        text_ += u'\n';
    }

    void write(const Enumeration& enumeration) {
        line();
        line(u"    typedef [uuid(" + guidDigits(enumeration.id) + u"), helpstring(" +
             quoted(enumeration.help) + u")]");
        line(u"    enum " + enumeration.name + u" {");
        for (size_t at = 0; at < enumeration.values.size(); ++at) {
            const EnumerationValue& value = enumeration.values[at];
            const TextView end = at + 1 < enumeration.values.size() ? u"," : u"";
            // What a value means stands in the reference: widl takes no help texts here.
            line(u"        " + value.name + u" = " + decimalText(value.value) + Text(end));
        }
        line(u"    } " + enumeration.name + u";");
    }

    void write(const ControlTable& table) {
        beginInterface(table.interfaceId, u"_" + table.name, table.help);
        for (const Member& member : table.members) write(member);
        line(u"    }");
        beginInterface(table.eventInterfaceId, u"__" + table.name, u"Events of " + table.name);
        for (const Member& event : table.events) write(event);
        line(u"    }");
        line();
        line(u"    [uuid(" + guidDigits(table.classId) + u"), helpstring(" + quoted(table.help) +
             u"), control]");
        line(u"    coclass " + table.name + u" {");
        line(u"        [default] dispinterface _" + table.name + u";");
        line(u"        [default, source] dispinterface __" + table.name + u";");
        line(u"    }");
    }

    void beginInterface(const Guid& id, TextView name, TextView help) {
        line();
        line(u"    [uuid(" + guidDigits(id) + u"), helpstring(" + quoted(help) + u"), hidden]");
        line(u"    dispinterface " + Text(name) + u" {");
        line(u"        properties:");
        line(u"        methods:");
    }

    void write(const Member& member) {
        if (member.kind != MemberKind::property) {
            begin(member, {});
            line(u"            " + typeName(member) + u" " + member.name + u"(" + parameters(member) + u");");
            return;
        }
        if (member.get) {
            begin(member, u", propget");
            line(u"            " + typeName(member) + u" " + member.name + u"();");
        }
        if (member.put) writePut(member, u", propput");
        if (member.put && member.putByReference) writePut(member, u", propputref");
    }

    void writePut(const Member& member, TextView access) {
        begin(member, access);
        line(u"            void " + member.name + u"([in] " + typeName(member) + u" value);");
    }

    void begin(const Member& member, TextView access) {
        line(u"        [id(" + decimalText(member.number) + u")" + Text(access) + u", helpstring(" +
             quoted(member.help) + u")]");
    }

    static Text parameters(const Member& member) {
        Text list;
        for (const Parameter& parameter : member.parameters) {
            if (!list.empty()) list += u", ";
            list += parameter.byReference ? u"[in, out" : u"[in";
            if (parameter.mayBeLeftOut())
                list += u", defaultvalue(" + constant(valueOf(parameter.defaultValue)) + u")";
            list += u"] ";
            list += idlName(parameter.type);
            list += parameter.byReference ? u"* " : u" ";
            list += parameter.name;
        }
        return list;
    }

    const Library& library_;
    Text text_;
};

}  // namespace

std::string writeIdl(const Library& library) {
    return toUtf8(IdlWriter(library).write());
}

}  // namespace obk
