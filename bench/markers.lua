-- Inserts as many markers as the first argument says, in a batch if there is a second one.
local count <const> = math.tointeger(tonumber(arg[1]))
local editor <const> = mavrin2.create()
editor:New(44100, 1)
local markers <const> = editor.Markers
if arg[2] then editor:BeginOperations() end
for i = 1, count do
  markers:Insert(i * 7919 % 1000000, 0, "marker")
end
if arg[2] then editor:EndOperations() end
assert(markers.Count == count)
