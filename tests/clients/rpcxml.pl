# Perl's RPC::XML. Its documents say that they are US-ASCII.
use strict;
use warnings;
use RPC::XML;
use RPC::XML::Client;

my $client = RPC::XML::Client->new($ARGV[0]);

sub call { return $client->send_request(@_) }

call('lmq.lmq_write_register', 0, 4096, 305419896);
my $read = call('lmq.lmq_read_register', 0, 4096, [0])->value;
print "number $read->[3][0]\n";
print 'array ', scalar(@$read), "\n";
call('lmq.vx_watchdog_set', 0, {wd_enable => 1, wd_timer => 77, mask_s => {wd_enable => 1, wd_timer => 1}});
print 'struct ', call('lmq.vx_watchdog_get', 0, {})->value->[2]{wd_timer}, "\n";
print 'fault ', call('lmq.nobody')->code, "\n";
my $many = call('system.multicall', [map { {methodName => 'lmq.lmq_read_register', params => [0, 4096, [0]]} } 1 .. 3])->value;
print 'multicall ', join(' ', map { $_->[0][3][0] } @$many), "\n";
