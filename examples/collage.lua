-- A collage of three sounds: a part of the second is pasted into the first, with a crossfade at its
-- beginning, and the third is mixed in quietly. The sounds may have different formats, rates and
-- channels; the result has those of the first.
--
--   build/bin/mavrin2 run examples/collage.lua FIRST SECOND THIRD OUT

if #arg ~= 4 then
  error("usage: mavrin2 run collage.lua FIRST SECOND THIRD OUT", 0)
end
local first <const>, second <const>, third <const>, out <const> = table.unpack(arg)

local editor <const> = mavrin2.create()
local position <const> = editor.Position

-- Edits do not raise errors: they leave a number.
local function check(what)
  local number <const> = editor.LastErrorNum
  assert(number == mavrin2.const.NOERRORS, what .. " failed with error " .. number)
  print(string.format("%-24s %9d frames", what, position.TotalSamples))
end

editor:Open(first)
check("opened " .. first)

-- The middle third of the second sound. All controls of a user copy to and paste from one file.
local source <const> = mavrin2.create()
source:Open(second)
source.Position.Selected = true
source.Position.StartSelect = source.Position.TotalSamples // 3
source.Position.EndSelect = source.Position.TotalSamples * 2 // 3
source:Copy()

-- Pasted at a third of the first one. Its first 10 ms fade in while the old sound fades out.
position.Selected = false
position.StartSelect = position.TotalSamples // 3
editor:Paste()
check("pasted a part")

-- Mixed in from the beginning: the document at 100 %, the third sound at 30 %.
position.Selected = false
position.StartSelect = 0
editor:MixFromFile(100, third, 30)
check("mixed " .. third)

-- Back to the first sound, and forward to the paste without the mix.
editor:Undo()
editor:Undo()
check("undone twice")
editor:Redo()
check("redone once")

-- Samples as numbers, interleaved, a second at a time from the cursor.
local peak = 0
position.Selected = false
for start = 0, position.TotalSamples - 1, editor.FileInfo.Frequency do
  position.StartSelect = start
  for _, sample in ipairs(editor:GetAudioArray(editor.FileInfo.Frequency)) do
    peak = math.max(peak, math.abs(sample))
  end
end
print(string.format("the loudest sample is %d", peak))

editor:Save(out, false)
print("saved " .. out)
