#!/usr/bin/perl
# Reads the contract (IDL) and the imports for other languages, each by its own grammar, and prints where they differ:
# numbers, names, accesses, types and order of arguments of every member and event. Ends with status 0 where they agree.
#
#   imports_agree.pl <OBKCTRLS.idl> <folder of the imports>
use strict;
use warnings;

my ($idl, $folder) = @ARGV;

sub content {
    open(my $handle, '<', $_[0]) or die "$_[0]: $!\n";
    local $/;
    return scalar <$handle>;
}

# Each language's names for the types of automation.
my %types = (
    'VARIANT_BOOL' => 'bool', 'unsigned char' => 'byte', 'short' => 'short', 'long' => 'long', 'float' => 'float',
    'double' => 'double', 'BSTR' => 'text', 'OLE_COLOR' => 'long', 'IFontDisp*' => 'object', 'IPictureDisp*' => 'object',
    'IUnknown*' => 'object', 'void' => 'void',
    'bool' => 'bool', 'byte' => 'byte', 'int' => 'long', 'string' => 'text', 'object' => 'object',
    'std::wstring' => 'text', 'Pointer<IDispatch>' => 'object', 'Pointer<IUnknown>' => 'object',
    'WordBool' => 'bool', 'Byte' => 'byte', 'SmallInt' => 'short', 'LongInt' => 'long', 'Single' => 'float',
    'Double' => 'double', 'WideString' => 'text', 'IDispatch' => 'object', 'IUnknown' => 'object',
);
sub type {
    my ($name) = @_;
    $name =~ s/^\s+|\s+$//g;
    return $types{$name} // $name;    # else an enumeration
}

my %found;    # language => { fact => 1 }
sub fact { my $language = shift; $found{$language}{join(' ', @_)} = 1; }

# "long KeyAscii, text& Extra_sText"
sub list { return '(' . join(', ', @_) . ')'; }

my $text = content($idl);
while ($text =~ /dispinterface (\w+) \{(.*?)\n    \}/gs) {
    my ($interface, $body) = ($1, $2);
    while ($body =~ /\[id\((\d+)\)(?:, (propget|propput|propputref))?, helpstring\("(?:[^"\\]|\\.)*"\)\]\s+(.*?)\s(\w+)\((.*?)\);(?:\n|\z)/gs) {
        my ($number, $access, $result, $name, $arguments) = ($1, $2 // 'call', $3, $4, $5);
        next if $access eq 'propputref';
        my @arguments = map {
            /^\[([^\]]*)\]\s*(.*?)(\*?) (\w+)$/ or die "the contract: $_\n";
            my ($how, $type, $pointer, $argument) = ($1, $2, $3, $4);
            my $reference = $how =~ /out/;
            $type .= $pointer unless $reference;
            type($type) . ($reference ? '& ' : ' ') . $argument
        } split /, (?=\[)/, $arguments =~ s/defaultvalue\(("[^"]*"|[^)]*)\)/default/gr;
        if ($access eq 'propget') { fact('idl', $interface, 'get', $number, $name, type($result)) }
        elsif ($access eq 'propput') { fact('idl', $interface, 'put', $number, $name, (split / /, $arguments[0])[0]) }
        else { fact('idl', $interface, 'call', $number, $name, list(@arguments), type($result)) }
    }
}

$text = content("$folder/OBKCTRLS.cs");
while ($text =~ /public interface (\w+)\n    \{(.*?)\n    \}/gs) {
    my ($interface, $body) = ($1, $2);
    $body =~ s/\[(?:return: |param: )?MarshalAs\([^)]*\)\] //g;
    while ($body =~ /^        \[DispId\((\d+)\)\] (\S+) (\w+) \{ (.*)\}$/gm) {
        my ($number, $type, $name, $accesses) = ($1, $2, $3, $4);
        while ($accesses =~ /\[DispId\((\d+)\)\] ([gs]et);/g) {
            fact('C#', $interface, $2 eq 'get' ? 'get' : 'put', $1, $name, type($type));
        }
    }
    while ($body =~ /^        \[DispId\((\d+)\)\] (\S+) (\w+)\((.*)\);$/gm) {
        my ($number, $type, $name, $arguments) = ($1, $2, $3, $4);
        my @arguments = map {
            /(ref )?(\S+) \@?(\w+)$/ or die "C#: $_\n";
            type($2) . ($1 ? '& ' : ' ') . $3
        } split /, (?!DefaultParameterValue)/, $arguments;
        fact('C#', $interface, 'call', $number, $name, list(@arguments), type($type));
    }
}

# "const Row: LongInt; var Text: WideString"
sub pascal {
    return map { /^(const|var) (\w+?)_?: (\w+)(?: = .*)?$/ or die "Pascal: $_\n"; type($3) . ($1 eq 'var' ? '& ' : ' ') . $2 }
        split /; /, $_[0] // '';
}
$text = content("$folder/OBKCTRLS.pas");
while ($text =~ /^  (\w+) = dispinterface\n(.*?)\n  end;/gms) {
    my ($interface, $body) = ($1, $2);
    while ($body =~ /property (\w+?)_?: (\w+)( readonly)?( writeonly)? dispid (\d+);/g) {
        fact('Pascal', $interface, 'get', $5, $1, type($2)) unless $4;
        fact('Pascal', $interface, 'put', $5, $1, type($2)) unless $3;
    }
    while ($body =~ /(?:function|procedure) (\w+?)_?(?:\(([^)]*)\))?(?:: (\w+))?; dispid (\d+);/g) {
        fact('Pascal', $interface, 'call', $4, $1, list(pascal($2)), type($3 // 'void'));
    }
}
while ($text =~ /^procedure T(\w+)\.Raise_\(.*?\n(.*?)\nend;/gms) {
    my ($class, $body) = ($1, $2);
    while ($body =~ /^    (\d+): if Assigned\(FOn(\w+)\) and \(Count = (\d+)\) then\n      FOn\w+\((.*)\);$/gm) {
        my ($number, $name, $count, $passed) = ($1, $2, $3, $4);
        my @arguments = $text =~ /^  T$class$name = procedure\(Sender: TObject; ([^)]*)\) of object;$/m ? pascal($1) : ();
        # What is passed on has to be what the handler takes.
        my @places = $passed =~ /\(DataOf\(Arguments, Count, (\d+)\)\)\^/g;
        die "Pascal: T$class.$name\n" if $count != @arguments || "@places" ne join(' ', 0 .. $count - 1);
        fact('Pascal', "__$class", 'call', $number, $name, list(@arguments), 'void');
    }
}

# "const std::wstring& Text = L"", long& Effect": what is const is no reference to the caller's.
sub cpp {
    return map {
        /^(const )?(.+?)(&)? (\w+)(?: = .*)?$/ or die "C++: $_\n";
        type($2) . ($3 && !$1 ? '& ' : ' ') . $4
    } split /, /, $_[0];
}
$text = content("$folder/obkctrls.h");
while ($text =~ /^class (\w+) : public detail::Control \{\n(.*?)^\};/gms) {
    my ($class, $body) = ($1, $2);
    while ($body =~ /^    (\S+) (\w+)\(\) const \{ return .*get<.*?>+\((\d+), "(\w+)"\)/gm) {
        die "C++: $2\n" if $2 ne $4;
        fact('C++', "_$class", 'get', $3, $2, type($1));
    }
    while ($body =~ /^    void (\w+)\(([^()]*) value\) \{ put\((\d+), .*, "(\w+)"\); \}$/gm) {
        my ($name, $type, $number, $said) = ($1, $2, $3, $4);
        die "C++: $name\n" if $name ne $said;
        $type =~ s/^const |&$//g;
        fact('C++', "_$class", 'put', $number, $name, type($type));
    }
    while ($body =~ /^    (\S.*?) (\w+)\(([^()]*)\) \{\n(?:(?!^    \}).*\n)*?        invoke\((\d+), DISPATCH_METHOD, \w+, (\d+), .*"(\w+)"\);$/gm) {
        my ($type, $name, $arguments, $number, $count, $said) = ($1, $2, $3, $4, $5, $6);
        my @arguments = cpp($arguments);
        die "C++: $name\n" if $name ne $said || $count != @arguments;
        fact('C++', "_$class", 'call', $number, $name, list(@arguments), type($type));
    }
    my %handlers;
    $handlers{$2} = $1 while $body =~ /^    std::function<void\((.*)\)> on(\w+);$/gm;
    while ($body =~ /^            case (\d+):\n                if \(on(\w+)[ )]/gm) {
        fact('C++', "__$class", 'call', $1, $2, list(cpp($handlers{$2})), 'void');
    }
}

# A colour with a default value is a Long in the contract, and passes as one everywhere.
my $differences = 0;
for my $language ('C#', 'Pascal', 'C++') {
    for my $fact (sort keys %{$found{idl}}) {
        next if $found{$language}{$fact};
        print "$language lacks: $fact\n";
        $differences++;
    }
    for my $fact (sort keys %{$found{$language} // {}}) {
        next if $found{idl}{$fact};
        print "only $language: $fact\n";
        $differences++;
    }
}
my $count = keys %{$found{idl}};
die "only $count facts in the contract\n" if $count < 290;
print "$count facts\n";
exit($differences ? 1 : 0);
