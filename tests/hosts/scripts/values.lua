-- Values on their way to a component and back.
local thing <const> = mavrin2.create("MavrinTest.Thing")

local function same(value, expected)
  if value ~= expected or math.type(value) ~= math.type(expected) then
    error(string.format("%s (%s) instead of %s (%s)", value, math.type(value), expected,
      math.type(expected)), 2)
  end
end

-- Numbers keep their kind where the component leaves them alone.
same(thing:EchoAny(5), 5)
same(thing:EchoAny(-2147483648), -2147483648)
same(thing:EchoAny(2147483648), 2147483648.0)
same(thing:EchoAny(0.5), 0.5)
same(thing:EchoAny("5"), "5")
same(thing:EchoAny(nil), nil)
same(thing:EchoAny(true), -1)

-- The system's coercions.
same(thing:EchoShort("12"), 12)
same(thing:EchoLong(2.5), 2)
same(thing:EchoDouble(3), 3.0)
same(thing:EchoFloat(0.25), 0.25)
same(thing:EchoText(12), "12")
same(thing:EchoText("a\0b"), "a\0b")
same(thing:EchoText("na\u{EF}ve \u{1D11E}"), "na\u{EF}ve \u{1D11E}")
same(thing:EchoText("\xFF"), "\xFF")
same(thing:EchoShape(-3), mavrin2.const.SUNKEN)

-- Booleans: true is -1, a number is those 16 bits, and they come back as they are.
for given, stored in pairs { [true] = -1, [false] = 0, [763] = 763, [1] = 1, [-32768] = -32768,
  [2.0] = 2, ["1"] = -1 } do
  same(thing:EchoBoolean(given), stored)
  thing.Enabled = given
  same(thing.Enabled, stored)
end

-- Arrays are tables from 1.
local doubled <const> = thing:DoubleAll { 1, 2.5, -16384, "4" }
same(table.concat(doubled, " "), "2 4 -32768 8")
same(#thing:DoubleAll {}, 0)
local mixed <const> = thing:EchoAny { 1, "two", 0.5, true, thing, { 7 } }
same(#mixed, 6)
same(mixed[2], "two")
same(mixed[4], -1)
same(mixed[5], thing)
same(mixed[6][1], 7)

-- Out-parameters follow the result; optional arguments may be left out anywhere.
local quotient, remainder, text = thing:Divide(17, 5)
same(quotient, 3)
same(remainder, 2)
same(text, "17/5")
same(thing:WithDefaults(1), "1 7 -1 -2.5 none 4")
same(thing:WithDefaults(1, nil, false), "1 7 0 -2.5 none 4")
same(thing:WithDefaults(1, 2, 5, 0, "five", mavrin2.const.ROUND), "1 2 5 0 five 1")
same(select("#", thing:EchoText("x")), 1)
same(select("#", thing:Fail(0, "")), 0)

-- Arguments that a component changes come back.
local grown, count, shout = thing:Grow({ 20, 21 }, "41", "Hey")
same(table.concat(grown, " "), "20 21 7")
same(count, 42)
same(shout, "Hey!")
same(thing:Sum { 20, 21, "1" }, 42)
same(select("#", thing:Sum {}), 1)

-- Objects.
same(thing:IsSame(thing), -1)
same(thing:IsSame(thing:MakeThing()), 0)
same(thing:IsSame(nil), 0)
