<?php
// PHP's xmlrpc. Its documents say that they are ISO-8859-1; it leaves HTTP to the caller.
function call($method, ...$arguments)
{
    global $argv;
    $url = parse_url($argv[1]);
    $header = ['Content-Type: text/xml'];
    if (isset($url['user'])) {
        $header[] = 'Authorization: Basic ' . base64_encode($url['user'] . ':' . $url['pass']);
    }
    $context = stream_context_create(['http' => [
        'method' => 'POST', 'header' => $header, 'content' => xmlrpc_encode_request($method, $arguments)]]);
    $answer = file_get_contents("http://{$url['host']}:{$url['port']}{$url['path']}", false, $context);
    return xmlrpc_decode($answer);
}

call('lmq.lmq_write_register', 0, 4096, 305419896);
$read = call('lmq.lmq_read_register', 0, 4096, [0]);
echo "number {$read[3][0]}\n";
echo 'array ', count($read), "\n";
call('lmq.vx_watchdog_set', 0, ['wd_enable' => 1, 'wd_timer' => 77, 'mask_s' => ['wd_enable' => 1, 'wd_timer' => 1]]);
// An empty array of PHP is no struct.
echo 'struct ', call('lmq.vx_watchdog_get', 0, ['wd_timer' => 0])[2]['wd_timer'], "\n";
echo 'fault ', call('lmq.nobody')['faultCode'], "\n";
$one = ['methodName' => 'lmq.lmq_read_register', 'params' => [0, 4096, [0]]];
$many = call('system.multicall', [$one, $one, $one]);
echo 'multicall ', implode(' ', array_map(fn($each) => $each[0][3][0], $many)), "\n";
