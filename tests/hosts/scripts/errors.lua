-- What fails says what and why.
local thing <const> = mavrin2.create("MavrinTest.Thing")

local function failure(call, ...)
  local fine, raised = pcall(call, ...)
  assert(not fine, "this should have failed")
  return raised
end
local function expect(status, description, call, ...)
  local raised <const> = failure(call, ...)
  if raised.status ~= status or raised.description ~= description then
    error(tostring(raised) .. " instead of " .. description, 2)
  end
end

-- A component's own failure.
local raised <const> = failure(thing.Fail, thing, -2147220727, "File Access error.")
assert(raised.status == 0x80040309 and raised.description == "File Access error.")
assert(tostring(raised) == "File Access error. (0x80040309)")
assert(tostring(failure(thing.Fail, thing, -2147467263, "")) == "Not implemented. (0x80004001)")
assert(tostring(failure(thing.Fail, thing, -2147220479, "")) == "Unknown error. (0x80040401)")
assert(tostring(failure(thing.Fail, thing, 0, "throw")) == "Out of memory. (0x8007000E)")
expect(0x80020012, "Unknown error.", thing.Divide, thing, 1, 0)

-- Arguments.
expect(0x8002000A, "EchoShort, argument 1: Out of range.", thing.EchoShort, thing, 70000)
expect(0x80020005, "EchoLong, argument 1: Wrong type.", thing.EchoLong, thing, "x")
expect(0x80020005, "EchoLong: argument Value: table given, long expected.", thing.EchoLong, thing, {})
expect(0x80020005, "EchoAny: argument Value: function given, variant expected.", thing.EchoAny,
  thing, print)
expect(0x80020005, "DoubleAll: argument Values: element 2 has the wrong type or is out of range.", thing.DoubleAll, thing,
  { 1, 70000 })
expect(0x80020005, "Grow: argument Count: long expected.", thing.Grow, thing, {}, "x", "")
expect(0x80020005, "EchoBoolean: argument Value: true, false or a 16-bit integer expected.",
  thing.EchoBoolean, thing, 32768)
local endless <const> = {}
endless[1] = endless
expect(0x80020005, "EchoAny: argument Value: tables are nested too deeply.", thing.EchoAny,
  thing, endless)
expect(0x8002000F, "Divide: missing argument Divisor.", thing.Divide, thing, 1)
expect(0x8002000F, "IsSame: missing argument Other.", thing.IsSame, thing)
expect(0x8002000E, "EchoLong: too many arguments (2, at most 1).", thing.EchoLong, thing, 1, 2)

-- Members.
expect(0x80020006, "ITestThing has no member 'Frobnicate'.", function() return thing.Frobnicate end)
expect(0x80020006, "ITestThing has no member 'Frobnicate'.", function() thing.Frobnicate = 1 end)
expect(0x80020003, "ITestThing.Alive is read-only.", function() thing.Alive = 1 end)
expect(0x80020003, "ITestThing.Secret is write-only.", function() return thing.Secret end)
expect(0x80020003, "ITestThing.EchoLong is a method.", function() thing.EchoLong = 1 end)
expect(0x8002000B, "Invalid index.", thing.Item, thing, 99)
for _, wrong in ipairs {
  { "EchoLong is a method; call it with a colon: object:EchoLong%(%.%.%.%)",
    function() thing.EchoLong(5) end },
  { "MavrinTest.None", function() mavrin2.create("MavrinTest.None") end },
  { "mavrin2.object expected, got nil", function() mavrin2.put(nil, "Name", 1) end },
  { "mavrin2.object expected, got number", function() mavrin2.members(5) end },
  { "value expected", function() mavrin2.put(thing, "Name") end },
  { "number expected", function() mavrin2.pump("soon") end },
  { "a number of milliseconds expected, got NaN", function() mavrin2.pump(0 / 0) end },
} do
  local message <const> = tostring(failure(wrong[2]))
  assert(message:find(wrong[1]), message)
end
mavrin2.pump(-math.huge)
