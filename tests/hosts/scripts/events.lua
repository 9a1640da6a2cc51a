-- Events: handlers, their arguments, and connections that come and go.
local thing <const> = mavrin2.create("MavrinTest.Thing")
local log = {}
local function note(...) log[#log + 1] = table.concat({ ... }, " ") end
local function logged()
  local text <const> = table.concat(log, "; ")
  log = {}
  return text
end

local first <const> = mavrin2.connect(thing, {
  Progress = function(percent, text)
    assert(math.type(percent) == "integer")
    note(percent, text)
  end,
  done = function(...) note("done", select("#", ...)) end, -- names have no case
})
thing:Fire(33, "a third")
assert(logged() == "33 a third; done 0")

-- Two connections, two calls.
local second <const> = mavrin2.connect(thing, { Done = function() note("again") end })
thing:Fire(1, "x")
assert(logged() == "1 x; done 0; again")
second:close()
second:close()
thing:Fire(2, "x")
assert(logged() == "2 x; done 0")

-- From another thread, delivered while pumping; from inside a coroutine, handled there.
thing:FireLater(50, "later")
assert(logged() == "")
mavrin2.pump(0)
assert(logged() == "50 later; done 0")
coroutine.wrap(function() thing:Fire(3, "inside") end)()
assert(logged() == "3 inside; done 0")
first:close()
thing:Fire(4, "x")
assert(logged() == "")

-- A handler may close its own connection, make others and call the object.
local busy
busy = mavrin2.connect(thing, {
  Progress = function(percent)
    note("busy", percent)
    busy:close()
    collectgarbage()
    mavrin2.connect(thing, { Done = function() note("new") end })
    if percent < 7 then thing:Fire(percent + 1, "") end
  end,
})
thing:Fire(5, "")
assert(logged() == "busy 5; new; new", "the new connection hears the inner and the outer end")

do
  local scoped <close> = mavrin2.connect(thing, { Progress = function() note("scoped") end })
  thing:Fire(1, "")
end
thing:Fire(1, "")
assert(logged() == "scoped; new; new")

-- What cannot be connected.
local function refused(object, handlers)
  local fine, message = pcall(mavrin2.connect, object, handlers)
  assert(not fine)
  return tostring(message)
end
assert(refused(thing, { Progres = print }):find("unknown event 'Progres'; try Progress, Done"))
assert(refused(thing, { [1] = print }):find("unknown event '1'"))
assert(refused(thing, { Done = "x" }):find("the handler of Done must be a function, not a string"))
assert(refused(thing, nil):find("table expected"))
thing:Fire(1, "")
assert(logged() == "new", "a refused connection is not made")
