-- The first script of someone who has read only the README. Its arguments are a sound of three
-- seconds at 44100 Hz and a folder for results.
local sound <const>, results <const> = arg[1], arg[2]
local editor <const> = mavrin2.create()
local position <const> = editor.Position

local percentages, ends = {}, 0
local events <const> = mavrin2.connect(editor, {
  BlockOperation = function(percent) percentages[#percentages + 1] = percent end,
  EndOperation = function() ends = ends + 1 end,
})
local function heard()
  local text <const> = table.concat(percentages, " ")
  percentages = {}
  return text
end

editor:Open(sound)
assert(ends == 1 and heard():find("100$"))
assert(position.TotalSamples == 132300 and editor.FileInfo.Frequency == 44100)
assert(position == editor.Position)

position.Selected = true
position.StartSelect = position:SecToSamples(1500)
position.EndSelect = position:SecToSamples(2000)
assert(position.Selected == -1 and position.EndSelect - position.StartSelect == 22050)

-- Blocks of half a second: three before the selection and two after it.
editor.FileBufferSize = 500
editor:DeleteSelect()
assert(ends == 2 and editor.LastErrorNum == mavrin2.const.NOERRORS)
local events_heard <const> = heard()
assert(select(2, events_heard:gsub("%d+", "")) >= 5 and events_heard:find("100$"), events_heard)
assert(position.TotalSamples == 110250 and editor.UndoEnabled ~= 0)
editor:Undo()
assert(position.TotalSamples == 132300 and position.StartSelect == 66150)

editor:Save(results .. "/piece.flac", true)
local saved <const>, failure = pcall(function() editor:Save(results .. "/none/x.flac", true) end)
assert(not saved and failure.status == 0x80040309)
assert(failure.description == "File Access error.")
assert(editor.LastErrorNum == mavrin2.const.FILEACCESS)
local text <const> = tostring(failure)
assert(text == "File Access error. (0x80040309): " .. results .. "/none/x.flac: No such file or directory",
  text)

-- The piece is a sound again, for a second editor beside the first one.
do
  local other <const> = mavrin2.create()
  other:Open(results .. "/piece.flac")
  assert(other.Position.TotalSamples == 22050)
  assert(other.FileInfo.FormatString:find("FLAC"))
end

-- Stopped from inside an event: the document is as it was.
heard()
local stopping <const> = mavrin2.connect(editor, { BlockOperation = function() editor:Stop() end })
editor:DeleteSelect()
stopping:close()
assert(position.TotalSamples == 132300 and editor.Status == 0)
events:close()

-- Let go in the middle of an edit.
do
  local gone = mavrin2.create()
  gone:Open(sound)
  mavrin2.connect(gone, {
    BlockOperation = function()
      gone = nil
      collectgarbage()
    end,
  })
  gone.Position.Selected = true
  gone.Position.EndSelect = 1000
  gone:DeleteSelect()
end
collectgarbage()

-- A font is an object of the system's, perhaps without type information.
local font <const> = editor.ScaleX.Font
assert(font == editor.ScaleX.Font and font ~= editor.ScaleY.Font)
assert(font.Name == "Arial" and font.Size == 8 and font.bold == 0)
font.Size, font.Name, font.Bold = 10.5, "Liberation Sans", true
font.italic = 1
assert(font.Size == 10.5 and font.Name == "Liberation Sans" and font.Weight == 700)
assert(font.Bold == -1 and font.Italic == -1 and font.Underline == 0)
mavrin2.put(font, "Charset", "2")
assert(font.Charset == 2 and tostring(font):find("^object: "))
assert(#mavrin2.members(font) == 0)
for _, wrong in ipairs({
  { function() return font.Colour end, 0x80020006, "no member 'Colour'" },
  { function() font.Colour = 1 end, 0x80020006, "no member 'Colour'" },
  { function() font.Size = "large" end, 0x80020005, "Size" },
  { function() font.Weight = 1e6 end, 0x8002000A, "Weight" },
  { function() font.Size = {} end, 0x80020005, "Size" },
}) do
  local worked <const>, error_ <const> = pcall(wrong[1])
  assert(not worked and error_.status == wrong[2], tostring(error_))
  assert(error_.description:find(wrong[3]), tostring(error_))
end
assert(font.Size == 10.5 and font.Weight == 700)
