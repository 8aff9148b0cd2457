#!/usr/bin/perl
# Makes a Mac file as other systems keep it (data fork and AppleDouble file), or tells the parts of an
# AppleDouble file, without any code of the system under test.
#
#   mac-file.pl make PATH DATA_LENGTH RESOURCE_LENGTH TYPE CREATOR FLAGS_HEX
#   mac-file.pl info NAME DATA_LENGTH RESOURCE_LENGTH TYPE CREATOR FLAGS_HEX
#                                    makes NAME.data, NAME.rsrc and NAME.info, as macutils keep a Mac file
#   mac-file.pl macbinary VERSION NAME DATA_LENGTH RESOURCE_LENGTH TYPE CREATOR FLAGS_HEX
#                                    prints a MacBinary file of version 1, 2 or 3
#   mac-file.pl binhex NAME DATA_LENGTH RESOURCE_LENGTH TYPE CREATOR FLAGS_HEX
#                                    prints a BinHex file, by Perl's Convert::BinHex
#   mac-file.pl fork APPLEDOUBLE     prints the resource fork
#   mac-file.pl finder APPLEDOUBLE   prints "TYPE CREATOR FLAGS"
use strict;
use warnings;

sub pattern {
    my ($length, $seed) = @_;
    my $unit = join '', map { chr(($_ * 37 + $seed) & 255) } 0 .. 250;
    return substr($unit x ($length / 251 + 1), 0, $length);
}

sub write_file {
    my ($path, $bytes) = @_;
    open my $out, '>:raw', $path or die "$path: $!";
    print $out $bytes or die "$path: $!";
    close $out or die "$path: $!";
}

sub make {
    my ($path, $data, $resource, $type, $creator, $flags) = @_;
    write_file($path, pattern($data, 1));
    my $header = pack('NN x16 n N3 N3', 0x00051607, 0x00020000, 2, 9, 50, 32, 2, 50 + 32, $resource);
    my $finder = pack('a4 a4 n4 x16', $type, $creator, hex $flags, 0x0102, 0x0304, 0);
    $path =~ s{([^/]+)$}{._$1};
    write_file($path, $header . $finder . pattern($resource, 2));
}

sub crc {
    my $crc = 0;
    for my $byte (unpack 'C*', $_[0]) {
        $crc ^= $byte << 8;
        $crc = $crc & 0x8000 ? ($crc << 1 ^ 0x1021) & 0xFFFF : $crc << 1 for 1 .. 8;
    }
    return $crc;
}

sub header {
    my ($version, $name, $data, $resource, $type, $creator, $flags) = @_;
    my $header = pack('CCa63a4a4CCnnnCCNNNNnC', 0, length $name, $name, $type, $creator, hex($flags) >> 8, 0,
        0x0102, 0x0304, 0, 0, 0, $data, $resource, 0, 0, 0, hex($flags) & 255);
    $header .= pack('a4x10NnCC', $version == 3 ? 'mBIN' : '', 0, 0,
        $version == 3 ? 130 : $version == 2 ? 129 : 0, $version > 1 ? 129 : 0);
    return $header . pack('nn', $version > 1 ? crc($header) : 0, 0);
}

sub padded {
    my ($bytes) = @_;
    return $bytes . "\0" x (-length($bytes) % 128);
}

sub info {
    my ($path, $data, $resource) = @_;
    write_file("$path.data", pattern($data, 1));
    write_file("$path.rsrc", pattern($resource, 2));
    write_file("$path.info", header(2, @_));
}

sub binhex {
    my ($name, $data, $resource, $type, $creator, $flags) = @_;
    require Convert::BinHex;
    my $file = Convert::BinHex->new(filename => $name, type => $type, creator => $creator, flags => hex $flags);
    $file->data(Data => pattern($data, 1));
    $file->resource(Data => pattern($resource, 2));
    $file->encode(\*STDOUT);
}

# Empty when there is no such entry.
sub entry {
    my ($path, $wanted) = @_;
    open my $in, '<:raw', $path or die "$path: $!";
    local $/;
    my $file = <$in>;
    for my $i (0 .. unpack('x24 n', $file) - 1) {
        my ($id, $offset, $length) = unpack 'N3', substr $file, 26 + 12 * $i, 12;
        return substr $file, $offset, $length if $id == $wanted;
    }
    return '';
}

my %verbs = (
    make => \&make,
    info => \&info,
    macbinary => sub { print header(@_), padded(pattern($_[2], 1)), padded(pattern($_[3], 2)) },
    binhex => \&binhex,
    fork => sub { print entry(@_, 2) },
    finder => sub { printf "%s %s %04x\n", unpack 'a4 a4 n', entry(@_, 9) },
);
my $verb = $verbs{shift // ''} or die 'usage: mac-file.pl ' . join('|', sort keys %verbs) . " ...\n";
binmode STDOUT;
$verb->(@ARGV);
