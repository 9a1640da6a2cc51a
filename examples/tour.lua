-- A tour: a sound is opened and described, half a second of it is deleted, brought back, deleted
-- again; the beginning is copied, pasted and mixed; the result is saved in three formats and as a
-- picture. The script prints what it does.
--
--   make run                        with the repository's own sound
--   make run FILE=song.mp3          with yours
--   build/bin/mavrin2 run examples/tour.lua [FILE]

local source <const> = arg[1] or "examples/sounds/plucked.flac"
local results <const> = "out"

local function say(text, ...)
  print(string.format(text, ...))
end

-- The control is the one object to create; everything else is a property of it.
local editor <const> = mavrin2.create()
local position <const> = editor.Position

-- Long operations run to their end before a call returns. Their progress comes as events.
local events <const> = mavrin2.connect(editor, {
  BlockOperation = function(percent)
    io.write("  ", percent, " %")
    io.flush()
  end,
  EndOperation = function()
    print("  done")
  end,
})

-- Positions are counted in samples: one sample is one point in time, in mono and in stereo.
local function seconds(samples)
  return samples / editor.FileInfo.Frequency
end

local function tell_length(intro)
  say("%s %d samples long, that is %.3f s.", intro, position.TotalSamples,
    seconds(position.TotalSamples))
end

say("Opening %s:", source)
editor:Open(source)

local info <const> = editor.FileInfo
say("The file's format is: %s.", info.FormatString)
tell_length("The sound is")

-- Half a second from 1.5 s on, or the middle fifth of a sound too short for that.
local length <const> = seconds(position.TotalSamples)
local from, to = 1.5, 2.0
if length < 2.5 then
  from, to = 0.4 * length, 0.6 * length
end

say("\nSelecting %.3f s … %.3f s.", from, to)
position.Selected = true
position.StartSelect = position:SecToSamples(math.floor(1000 * from)) -- takes milliseconds
position.EndSelect = position:SecToSamples(math.floor(1000 * to))

-- A block is what is copied between two events; smaller ones give more of them to look at. 100 ms
-- is the smallest there is.
editor.FileBufferSize = math.floor(1000 * length / 6)

print("Deleting the selection:")
editor:DeleteSelect()
tell_length("The sound is now")

print("\nThat was a mistake: undo.")
editor:Undo()
tell_length("The sound is again")
say("What was selected is selected again: samples %d … %d.", position.StartSelect,
  position.EndSelect)

say("\nSaving just the selection to %s/tour-selection.flac:", results)
editor:Save(results .. "/tour-selection.flac", true)

print("\nIt was none after all: redo.")
editor:Redo()
tell_length("The sound is")

-- Copied sound is in a file, so that it can come from another document, of another format.
print("\nCopying the first quarter:")
local quarter <const> = position.TotalSamples // 4
position.Selected = true
position.StartSelect = 0
position.EndSelect = quarter
editor:Copy()

print("Pasting it at the end:")
position.Selected = false
position.StartSelect = position.TotalSamples
editor:Paste()
tell_length("The sound is now")

print("Mixing it into the second quarter at half its level:")
position.Selected = false
position.StartSelect = quarter
editor:Mix(100, 50)

-- The extension chooses the format.
print()
for _, extension in ipairs { "flac", "mp3", "wav" } do
  local name = results .. "/tour." .. extension
  say("Saving to %s:", name)
  editor:Save(name, false)
  say("  %s", info.FormatString)
end

-- The control is visual: a host gives it a window. This one has no screen.
position.Selected = true
position.EndSelect = position.TotalSamples * 5 // 8
position.StartSelect = position.TotalSamples * 3 // 8
editor.ScaleX.Type = 2 -- minutes and seconds
local window <const> = mavrin2.window(editor, 900, 260)
window:save(results .. "/tour.png")
say("\nA picture of the sound, with a selection: %s/tour.png", results)

print("\nSaving into a folder that is not there, which cannot go well. The control answers:")
local saved, failure = pcall(function()
  editor:Save(results .. "/no such folder/tour.wav", false)
end)
assert(not saved, "the folder exists after all")
say("  status 0x%08X: %s", failure.status, failure.description)

events:close()
window:close()
editor:Close()
say("\nThe end. Listen to %s/tour.wav: a piece is gone, and the beginning comes again.", results)
say("Look at it in %s/tour.png.", results)
