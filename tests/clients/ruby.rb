# Ruby's xmlrpc.
require 'xmlrpc/client'

client = XMLRPC::Client.new2(ARGV[0])
client.call('lmq.lmq_write_register', 0, 4096, 305_419_896)
read = client.call('lmq.lmq_read_register', 0, 4096, [0])
puts "number #{read[3][0]}"
puts "array #{read.length}"
client.call('lmq.vx_watchdog_set', 0,
            { 'wd_enable' => 1, 'wd_timer' => 77, 'mask_s' => { 'wd_enable' => 1, 'wd_timer' => 1 } })
puts "struct #{client.call('lmq.vx_watchdog_get', 0, {})[2]['wd_timer']}"
begin
  client.call('lmq.nobody')
rescue XMLRPC::FaultException => e
  puts "fault #{e.faultCode}"
end
many = client.multicall(*[['lmq.lmq_read_register', 0, 4096, [0]]] * 3)
puts "multicall #{many.map { |each| each[3][0] }.join(' ')}"
