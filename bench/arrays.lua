-- Moves a million samples from a table into a document and back, as often as the argument says.
local rounds <const> = math.tointeger(tonumber(arg[1]))
local samples <const> = {}
for i = 1, 1000000 do
  samples[i] = i * 7919 % 65536 - 32768
end

local editor <const> = mavrin2.create()
editor.UndoRedoCount = 1
for _ = 1, rounds do
  editor:New(44100, 1)
  editor:PutAudioArray(samples)
  editor.Position.Selected = false
  editor.Position.StartSelect = 0
  local back <const> = editor:GetAudioArray(#samples)
  assert(#back == #samples and back[#back] == samples[#samples])
end
