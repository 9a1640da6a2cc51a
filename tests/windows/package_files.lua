-- Opens files, gives them a title and a marker, and saves them: each pair of lines in the list names the
-- file to open and the one to save.
-- As package_files.vbs.
local editor <const> = mavrin2.create()
local lines <const> = io.lines(arg[1])
for source in lines do
  local target = lines()
  local done, failure = pcall(function()
    editor:Open(source)
    editor.FileInfo.Title = "T\u{ED}tulo"
    editor.Markers:Insert(1000, 500, "a range")
    editor:Save(target, false)
  end)
  if not done then print(source .. ": " .. failure.description) end
end
editor:Close()
