-- An object lives as long as a variable holds it, whatever its handlers mention.
local keeper <const> = mavrin2.create("MavrinTest.Thing")

local function alive() return keeper.Alive end
local function collected(count, why)
  collectgarbage()
  assert(alive() == count, string.format("%s: %d alive", why, alive()))
end
assert(alive() == 1)

do
  local thing = mavrin2.create("MavrinTest.Thing")
  thing.Friend = thing:MakeThing()
  assert(thing.Friend == thing.Friend, "the same object is the same value")
  collected(3, "one is held by the other")
  thing = nil
end
collected(1, "both go together")

do
  local thing <const> = mavrin2.create("MavrinTest.Thing")
  mavrin2.connect(thing, { Done = function() return thing end })
end
collected(1, "handlers that mention their object")

do
  local thing = mavrin2.create("MavrinTest.Thing")
  local calls = 0
  mavrin2.connect(thing, { Done = function() calls = calls + 1 end })
  collectgarbage()
  thing:Fire(1, "")
  assert(calls == 1, "a connection needs no variable")
end
collected(1, "a connection in no variable")

do
  local thing = mavrin2.create("MavrinTest.Thing")
  local connection <const> = mavrin2.connect(thing, { Done = function() return thing end })
  thing = nil
  collected(1, "a connection does not hold its object")
  connection:close()
end

-- Let go from inside an event, and kept only by the object that raises it.
do
  local thing = mavrin2.create("MavrinTest.Thing")
  local after = false
  mavrin2.connect(thing, {
    Progress = function()
      thing = nil
      collectgarbage()
    end,
    Done = function() after = true end,
  })
  thing:Fire(1, "")
end
collected(1, "let go while it raises events")

do
  local weak <const> = setmetatable({}, { __mode = "v" })
  weak[1] = mavrin2.create("MavrinTest.Thing")
  keeper.Friend = weak[1]
  collectgarbage()
  assert(weak[1] == nil and alive() == 2, "the value goes, the object stays with its friend")
  assert(keeper.Friend:IsSame(keeper.Friend) == -1)
  keeper.Friend = nil
end
collected(1, "the friend is gone")

-- Finalizers may still use objects, and see those that are gone.
do
  local thing <const> = mavrin2.create("MavrinTest.Thing")
  setmetatable({}, { __gc = function() _G.seen = pcall(function() return thing.Alive end) end })
end
collectgarbage()
collected(1, "held by a finalizer")
assert(seen ~= nil)

-- Things of all kinds are left for the end of the script.
leftover = mavrin2.create("MavrinTest.Thing")
mavrin2.connect(leftover, { Done = function() return leftover:MakeThing() end })
leftover.Friend = keeper
setmetatable({}, { __gc = function() leftover:Fire(1, "at the end") end })
