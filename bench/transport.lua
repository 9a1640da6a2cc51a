-- What playing and recording take of one core, and the copy with which a recording begins, beside cp.
--
--   transport.lua DATA      the folder of the sounds to measure with
local hour <const> = arg[1] .. "/m60.wav"
local copy <const> = arg[1] .. "/copy.tmp"

local function row(task, value, limit, other)
  print(("| %s | %s | %s | | %s |"):format(task, value, other or "", limit))
end

-- The share that a running control takes, its window painted twenty times a second.
local function share(task, limit, window, begin)
  local editor = mavrin2.create()
  local win = window and mavrin2.window(editor, 1920, 400)
  begin(editor)
  if win then win:pixel(0, 0) end
  local seconds <const> = 6
  local from = os.clock()
  for _ = 1, seconds * 20 do
    mavrin2.pump(50)
    if win then win:pixel(0, 0) end
  end
  row(task, ("%.1f %%"):format((os.clock() - from) / seconds * 100), limit)
  assert(editor.Status ~= 0)
  editor:Stop()
end

local function play(editor)
  editor:Open(hour)
  editor:Play(mavrin2.const.PLAYTOEND)
end
local function record(editor)
  editor:New(44100, 2)
  editor:Record(mavrin2.const.RECORD_CLEAR)
end
share("Playing an hour, of one core", "2 %", false, play)
share("Playing it in a window of 1920 × 400", "20 %", true, play)
share("Recording", "5 %", false, record)
share("Recording in a window of 1920 × 400", "", true, record)

local function seconds(run)
  local from = os.clock()
  run()
  return os.clock() - from
end
local editor <const> = mavrin2.create()
editor:Open(hour)
local ours, theirs = {}, {}
for i = 1, 5 do
  ours[i] = seconds(function() editor:Record(mavrin2.const.RECORD_CLEAR) end)
  editor:Stop()
  editor:Undo()
  local program <close> = assert(io.popen(("bash -c 'TIMEFORMAT=%%U+%%S; time cp %s %s' 2>&1")
                                          :format(hour, copy)))
  theirs[i] = load("return " .. program:read("a"))()
  os.remove(copy)
end
table.sort(ours)
table.sort(theirs)
row("`Record` into an hour, processor time until it runs", ("%.3f s"):format(ours[3]),
    "1.3 × cp", ("cp %.3f s"):format(theirs[3]))
