// Node's xmlrpc.
const url = new URL(process.argv[2]);
const login = url.username ? { basic_auth: { user: url.username, pass: url.password } } : {};
const client = require('xmlrpc').createClient({ host: url.hostname, port: url.port, path: url.pathname, ...login });
const call = (method, ...values) => new Promise((resolve, reject) =>
  client.methodCall(method, values, (error, value) => (error ? reject(error) : resolve(value))));

(async () => {
  await call('lmq.lmq_write_register', 0, 4096, 305419896);
  const read = await call('lmq.lmq_read_register', 0, 4096, [0]);
  console.log('number', read[3][0]);
  console.log('array', read.length);
  await call('lmq.vx_watchdog_set', 0, { wd_enable: 1, wd_timer: 77, mask_s: { wd_enable: 1, wd_timer: 1 } });
  console.log('struct', (await call('lmq.vx_watchdog_get', 0, {}))[2].wd_timer);
  await call('lmq.nobody').catch((error) => console.log('fault', error.faultCode));
  const one = { methodName: 'lmq.lmq_read_register', params: [0, 4096, [0]] };
  const many = await call('system.multicall', [one, one, one]);
  console.log('multicall', ...many.map((each) => each[0][3][0]));
})();
