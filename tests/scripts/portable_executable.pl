#!/usr/bin/perl
# Prints what a loader is told by a Windows program or library, one fact a line: "machine x64", "time 0",
# "characteristic 0x0160", "section .text r-x", "version 1.0.0.0" (the first version resource).
use strict;
use warnings;

my ($file) = @ARGV;
open(my $handle, '<:raw', $file) or die "$file: $!\n";
my $bytes = do { local $/; <$handle> };

my $header = unpack('V', substr($bytes, 0x3c, 4));
die "$file is no portable executable\n" if substr($bytes, $header, 4) ne "PE\0\0";
my ($machine, $count, $time, undef, undef, $optional) = unpack('vvVVVv', substr($bytes, $header + 4, 18));
print 'machine ', { 0x8664 => 'x64', 0x14c => 'x86' }->{$machine} // $machine, "\n";
print "time $time\n";
printf "characteristics 0x%04x\n", unpack('v', substr($bytes, $header + 24 + 70, 2));
for my $at (0 .. $count - 1) {
    my $section = substr($bytes, $header + 24 + $optional + 40 * $at, 40);
    my ($name, $flags) = (unpack('Z8', $section), unpack('V', substr($section, 36, 4)));
    print "section $name ", ($flags & 0x40000000 ? 'r' : '-'), ($flags & 0x80000000 ? 'w' : '-'),
        ($flags & 0x20000000 ? 'x' : '-'), "\n";
}
my $version = index($bytes, "\xbd\x04\xef\xfe");
if ($version >= 0) {
    my ($high, $low) = unpack('VV', substr($bytes, $version + 8, 8));
    print 'version ', join('.', $high >> 16, $high & 0xffff, $low >> 16, $low & 0xffff), "\n";
}
