-- The requests of a wrk run: the document that BODY names, sent to /RPC2. With CHECK in the environment each answer is
-- looked at, which takes wrk longer than the fastest servers take to answer.
wrk.method = "POST"
wrk.path = "/RPC2"
wrk.headers["Content-Type"] = "text/xml"
local file = assert(io.open(os.getenv("BODY"), "rb"))
wrk.body = file:read("*a")
file:close()

if os.getenv("CHECK") then
    local faults = 0
    function response(status, headers, body)
        if status ~= 200 or body:find("<fault>", 1, true) then faults = faults + 1 end
        if faults == 1 then print("the first wrong answer: " .. status .. " " .. body:sub(1, 500)) end
    end
end
