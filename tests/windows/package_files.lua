-- Opens and saves files: each pair of lines in the list names the file to open and the one to save.
-- As package_files.vbs.
local editor <const> = mavrin2.create()
local lines <const> = io.lines(arg[1])
for source in lines do
  local target = lines()
  local done, failure = pcall(function()
    editor:Open(source)
    editor:Save(target, false)
  end)
  if not done then print(source .. ": " .. failure.description) end
end
editor:Close()
