#!/usr/bin/perl
# Reads a project in classic Basic beside the contract (IDL), and prints what in it is none of the controls': the
# library's identifier and version, classes, members that the form uses, and the parameters of the events that it
# handles. Ends with status 0 where all fits.
#
#   classic_project.pl <OBKCTRLS.idl> <folder of the project>
use strict;
use warnings;

my ($idl, $folder) = @ARGV;
sub content {
    open(my $handle, '<', $_[0]) or die "$_[0]: $!\n";
    local $/;
    return scalar(<$handle>) =~ s/\r//gr;
}

my $contract = content($idl);
$contract =~ /uuid\(([-0-9A-F]+)\),\s+version\((\d+\.\d+)\)/ or die "the contract names no library\n";
my $library = "{$1}#$2#0";
my %types = (short => 'Integer', long => 'Long', float => 'Single', double => 'Double', BSTR => 'String',
             VARIANT_BOOL => 'Boolean', 'IUnknown*' => 'Object');
my %members;    # interface => { name => parameters, as Basic declares them }
while ($contract =~ /dispinterface (\w+) \{(.*?)\n    \}/gs) {
    my ($interface, $body) = ($1, $2);
    while ($body =~ /^\s+[\w*]+ (\w+)\((.*)\);$/mg) {
        my ($name, $parameters) = ($1, $2);
        $members{$interface}{$name} =
            join(', ', map { /\] (.*)\* (\w+)$/ ? "$2 As " . ($types{$1} // $1) : $_ } split /, (?=\[)/, $parameters);
    }
}

my $faults = 0;
sub fault { print "@_\n"; ++$faults; }
my %seen;
for my $file (glob "$folder/*.vbp $folder/*.frm") {
    my $text = content($file);
    while ($text =~ /^Object *= *"?([^";]+)"?; *"?([^"\n]+)"?$/mg) {
        ++$seen{library};
        fault("$file: $1; $2") unless $1 eq $library && $2 eq 'OBKCTRLS.ocx';
    }
    my %controls;
    while ($text =~ /Begin OBKCTRLS\.(\w+) (\w+)/g) {
        $controls{$2} = $1;
        fault("$file: no class $1") unless $contract =~ /coclass $1 /;
    }
    for my $control (sort keys %controls) {
        while ($text =~ /\b$control\.(\w+)/g) {
            ++$seen{member};
            fault("$file: $controls{$control} has no $1") unless exists $members{"_$controls{$control}"}{$1};
        }
        while ($text =~ /Sub ${control}_(\w+)\((.*)\)/g) {
            ++$seen{event};
            my $declared = $members{"__$controls{$control}"}{$1} // 'no such event';
            fault("$file: $1($2), and not ($declared)") unless $declared eq $2;
        }
    }
}
$seen{$_} or fault("the project has no $_") for qw(library member event);
exit($faults ? 1 : 0);
