-- A control in windows without a screen, through its container interfaces only.
--   window.lua SOUND FOLDER

local sound, folder = ...

local function refuses(pattern, act, ...)
    local ok, message = pcall(act, ...)
    assert(not ok and tostring(message):find(pattern, 1, true), tostring(message))
end

local function picture(win, w, h)
    local rows = {}
    for y = 0, h - 1, 7 do
        for x = 0, w - 1, 3 do rows[#rows + 1] = win:pixel(x, y) end
    end
    return table.concat(rows, " ")
end

local function colors(text)
    local seen, count = {}, 0
    for color in text:gmatch("%d+") do
        if not seen[color] then seen[color], count = true, count + 1 end
    end
    return count
end

local editor = mavrin2.create()
local win <close> = mavrin2.window(editor, 310, 120)
local empty = picture(win, 300, 120)
editor:Open(sound)
assert(picture(win, 300, 120) ~= empty, "opening draws")
win:resize(300, 120)
local waveform = picture(win, 300, 120)
assert(colors(waveform) > 5, "there is more than a frame")
editor.Position.Selected = true
editor.Position.StartSelect = 1000
editor.Position.EndSelect = 20000
local selected = picture(win, 300, 120)
assert(selected ~= waveform, "selecting draws")

-- The same, drawn by the host instead of in a window of the control's.
win:close()
refuses("the window is closed", win.pixel, win, 0, 0)
do
    local drawn <close> = mavrin2.window(editor, 300, 120, {active = false})
    assert(picture(drawn, 300, 120) == selected, "both ways show one picture")
    editor.TypeView = 1
    assert(picture(drawn, 300, 120) ~= selected, "it notifies of another picture")
    editor.TypeView = 0
    assert(picture(drawn, 300, 120) == selected)
    drawn:resize(150, 60)
    assert(colors(picture(drawn, 150, 60)) > 5)
    refuses("outside the window", drawn.pixel, drawn, 150, 0)
    refuses("outside the window", drawn.pixel, drawn, 0, -1)
    refuses("in a window already", mavrin2.window, editor, 10, 10)
    drawn:save(folder .. "/window.png")
    refuses("No such file or directory", drawn.save, drawn, folder .. "/none/x.png")
    refuses("Is a directory", drawn.save, drawn, folder)
end

for _, size in ipairs {{0, 0}, {1, 1}, {2, 2}, {3, 2000}, {8000, 10}, {0, 50}, {50, 0}} do
    local w, h = table.unpack(size)
    local odd <close> = mavrin2.window(editor, w, h)
    if w > 0 and h > 0 then
        odd:pixel(w - 1, h - 1)
    else
        refuses("Invalid argument", odd.save, odd, folder .. "/none.png")
    end
end
refuses("0 to 32767", mavrin2.window, editor, 32768, 1)
refuses("0 to 32767", mavrin2.window, editor, 1, -1)

-- A hundred times: alone, with a resize, with the window left to the collector.
for i = 1, 100 do
    local again = mavrin2.window(editor, 100 + i, 50, {active = i % 3 ~= 0})
    again:pixel(5, 5)
    again:resize(60, 40 + i)
    again:pixel(5, 5)
    if i % 2 == 0 then again:close() end
    again = nil
    collectgarbage()
end

-- Painted when the loop runs, as any window: from then on the view has columns, and a change of it
-- is an event.
for _, active in ipairs {true, false} do
    local painted = mavrin2.create()
    painted:Open(sound)
    local moved = 0
    mavrin2.connect(painted, {ChangePosition = function() moved = moved + 1 end})
    local lazy <close> = mavrin2.window(painted, 300, 120, {active = active})
    painted:Refresh()
    assert(moved == 0, "nothing is painted before the loop runs")
    mavrin2.pump(0)
    assert(moved == 1)
    painted:Refresh()
    assert(moved == 2)
    lazy:resize(200, 100)
    mavrin2.pump(1)
    assert(moved == 3, "painted at its new size")
    mavrin2.pump(1)
    assert(moved == 3, "once")
end

-- A handler resizes the window that is just drawing, and the next one closes it.
do
    local resized = mavrin2.create()
    resized:Open(sound)
    local shrinking = mavrin2.window(resized, 300, 120)
    local width = 290
    mavrin2.connect(resized, {ChangePosition = function()
        width = width - 10
        if width > 250 then shrinking:resize(width, 80) else shrinking:close() end
    end})
    for _ = 1, 5 do mavrin2.pump(0) end
    refuses("the window is closed", shrinking.pixel, shrinking, 0, 0)
end

-- The handler closes the window that is just drawing.
local last = mavrin2.window(editor, 200, 80)
mavrin2.connect(editor, {ChangePosition = function() last:close() end})
editor.Position.StartView = 100
last = mavrin2.window(mavrin2.create(), 50, 50)
print("held")
os.exit(0)
