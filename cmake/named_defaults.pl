# widl gives no default value to a parameter whose type has a name. Two steps around it let an IDL file say so
# all the same:
#
#   named_defaults.pl plain <idl> <plainer idl>   writes `long` in place of OLE_COLOR where there is a default
#   named_defaults.pl named <idl> <type library>  gives those parameters their type back in what widl has made
#
# A colour is a Long to callers, so nothing but the type's name differs between the two.
use strict;
use warnings;

my ($step, $idl, $other) = @ARGV;
my $text = contents($idl);

sub contents {
    my ($file) = @_;
    open(my $in, '<:raw', $file) or die "$file: $!";
    local $/;
    return <$in>;
}

sub write_to {
    my ($file, $contents) = @_;
    open(my $out, '>:raw', $file) or die "$file: $!";
    print $out $contents;
    close($out) or die "$file: $!";
}

if ($step eq 'plain') {
    $text =~ s/(\[[^\[\]]*\bdefaultvalue\([^()]*\)\] )OLE_COLOR /$1long /g;
    write_to($other, $text);
    exit;
}

# Which parameters of which methods: those with a default, and one without, which knows the type's number.
my (%wanted, $model);
while ($text =~ /\b(\w+)\(((?:\[in[^;]*)?)\);/g) {
    my ($method, $at) = ($1, 0);
    for my $parameter (split /, (?=\[in)/, $2) {
        # A property is several methods of one name.
        $model = [$method, $at] if $parameter =~ /^\[in\] OLE_COLOR (?!value$)/;
        push @{$wanted{$method}}, $at if $parameter =~ /defaultvalue.*\] OLE_COLOR /;
        ++$at;
    }
}
exit unless %wanted;
die "$idl: no colour without a default" unless $model;

my $library = contents($other);
substr($library, 0, 4) eq 'MSFT' or die "$other is no type library";
sub number { return unpack('V', substr($library, $_[0], 4)); }
sub halves { return unpack('vv', substr($library, $_[0], 4)); }

# The header, one number for each type, then the places of the segments.
my $types = number(0x20);
my $segments = 0x54 + (number(0x14) & 0x100 ? 4 : 0) + 4 * $types;
my ($type_segment, $name_segment) = (number($segments), number($segments + 7 * 16));
sub name_at {
    my $entry = $name_segment + $_[0];
    return substr($library, $entry + 12, number($entry + 8) & 0xFF);
}

# Each method's record ends with its parameters, 12 bytes each, which begin with the type's number.
my %places;
for my $type (0 .. $types - 1) {
    my $base = $type_segment + 100 * $type;
    my ($functions, $variables) = halves($base + 24);
    next unless $functions;
    my $record = number($base + 4);
    my $names = $record + 4 + number($record) + 4 * ($functions + $variables);
    $record += 4;
    for my $function (0 .. $functions - 1) {
        my ($size) = halves($record);
        my ($parameters) = halves($record + 20);
        my $first = $record + $size - 12 * $parameters;
        my $name = name_at(number($names + 4 * $function));
        push @{$places{$name}}, [map { $first + 12 * $_ } 0 .. $parameters - 1];
        $record += $size;
    }
}

my $plain = 0x80030003;  # a Long without a name
my ($of, $at) = @$model;
my $colour = number($places{$of}[0][$at]);
die "$of has no colour" if $colour & 0x80000000;
for my $method (keys %wanted) {
    my @records = @{$places{$method} // die "no $method"};
    for my $position (@{$wanted{$method}}) {
        for my $record (@records) {
            die "$method is another one" unless number($record->[$position]) == $plain;
            substr($library, $record->[$position], 4) = pack('V', $colour);
        }
    }
}
write_to($other, $library);
