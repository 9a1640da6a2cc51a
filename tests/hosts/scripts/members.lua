-- Properties, constants and type information.
local thing <const> = mavrin2.create("MavrinTest.Thing")

thing.Friend = thing
assert(thing.FriendBy == "putref", "objects go by reference where they can")
assert(thing.Friend == thing)
thing.Friend = nil
assert(thing.FriendBy == "put" and thing.Friend == nil)
assert(thing.friend == nil and thing.alive == 1, "names have no case")

mavrin2.put(thing, "Item", 5, "five")
mavrin2.put(thing, "item", 6, 6)
assert(thing:Item(5) == "five" and thing:Item(6) == "6")
mavrin2.put(thing, "Enabled", 3)
assert(thing.Enabled == 3)
assert(thing.EchoLong == thing.EchoLong, "a method is one function")
assert(tostring(thing):find("^ITestThing: "))

-- From the types of known objects, and of the editor without having made one.
assert(mavrin2.const.ROUND == 1 and mavrin2.const.SQUARE == 4)
assert(mavrin2.const.FILEACCESS == -18)
local found, message = pcall(function() return mavrin2.const.CUBE end)
assert(not found and message:find("members.lua:%d+: unknown constant 'CUBE'"), message)

local function member(name, kind)
  for _, one in ipairs(mavrin2.members(thing)) do
    if one.name == name and one.kind == kind then return one end
  end
  error("no " .. kind .. " " .. name)
end
local echo <const> = member("EchoLong", "method")
assert(echo.id == 2 and echo.help == "Gives back, any 32 bits" and echo.type == "long")
assert(#echo.parameters == 1 and echo.parameters[1].name == "Value")
assert(echo.parameters[1].type == "long" and echo.parameters[1].direction == "in")
local defaults <const> = member("WithDefaults", "method").parameters
assert(not defaults[1].optional and defaults[1].default == nil)
assert(defaults[2].optional and defaults[2].default == 7 and defaults[2].type == "short")
assert(defaults[3].type == "boolean" and defaults[3].default == -1)
local divide <const> = member("Divide", "method").parameters
assert(defaults[4].default == -2.5 and defaults[5].default == "none" and defaults[6].default == 4)
assert(member("Grow", "method").parameters[1].direction == "inout")
assert(divide[3].direction == "out" and divide[4].type == "string")
assert(member("DoubleAll", "method").type == "array of short")
assert(member("EchoShape", "method").type == "ShapeConstants")
assert(member("IsSame", "method").parameters[1].type == "ITestThing")
assert(member("Item", "get").parameters[1].name == "Index")
assert(#member("Item", "put").parameters == 2 and member("Friend", "putref").type == nil)
local progress <const> = member("Progress", "event")
assert(progress.id == 1 and progress.parameters[2].name == "Text")
