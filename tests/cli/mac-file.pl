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
    my $finder = $type . $creator . pack('n', hex $flags) . pack('n3', 0x0102, 0x0304, 0) . "\0" x 16;
    my $start = 26 + 2 * 12;
    my $header = pack('NN', 0x00051607, 0x00020000) . "\0" x 16 . pack('n', 2);
    my $entries = pack('N3', 9, $start, 32) . pack('N3', 2, $start + 32, $resource);
    my ($dir, $name) = $path =~ m{^(.*/)?([^/]+)$};
    write_file(($dir // '') . "._$name", $header . $entries . $finder . pattern($resource, 2));
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

sub parts {
    my ($path) = @_;
    open my $in, '<:raw', $path or die "$path: $!";
    local $/;
    my $file = <$in>;
    my (%part, $count);
    $count = unpack 'n', substr $file, 24, 2;
    for my $i (0 .. $count - 1) {
        my ($id, $offset, $length) = unpack 'N3', substr $file, 26 + 12 * $i, 12;
        $part{$id} = substr $file, $offset, $length;
    }
    return %part;
}

my $verb = shift // '';
if ($verb eq 'make') {
    make(@ARGV);
} elsif ($verb eq 'info') {
    info(@ARGV);
} elsif ($verb eq 'macbinary') {
    binmode STDOUT;
    print header(@ARGV), padded(pattern($ARGV[2], 1)), padded(pattern($ARGV[3], 2));
} elsif ($verb eq 'binhex') {
    binhex(@ARGV);
} elsif ($verb eq 'fork') {
    my %part = parts(@ARGV);
    binmode STDOUT;
    print $part{2} // '';
} elsif ($verb eq 'finder') {
    my %part = parts(@ARGV);
    my $finder = $part{9} // die "no Finder information\n";
    printf "%s %s %04x\n", substr($finder, 0, 4), substr($finder, 4, 4), unpack 'n', substr $finder, 8, 2;
} else {
    die "usage: mac-file.pl make|info|macbinary|binhex|fork|finder ...\n";
}
