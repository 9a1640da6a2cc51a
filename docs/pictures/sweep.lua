-- Writes a tone of 3 seconds that rises from 20 Hz to 20 kHz, by the same interval in equal times,
-- into a WAV file: after a filter, its outline is the filter's response.
--
--   build/bin/mavrin2 run docs/pictures/sweep.lua sweep.wav

local RATE <const>, SECONDS <const>, LOW <const>, HIGH <const> = 44100, 3, 20, 20000
local LEVEL <const> = 0.4 * 32767

local growth <const> = math.log(HIGH / LOW) / SECONDS
local samples = {}
for i = 1, RATE * SECONDS do
  local turns = LOW * (math.exp(growth * (i - 1) / RATE) - 1) / growth
  samples[i] = math.floor(LEVEL * math.sin(2 * math.pi * turns) + 0.5)
end

local editor <const> = mavrin2.create()
editor:New(RATE, 1)
editor:PutAudioArray(samples)
editor:Save(assert(arg[1], "the name of the WAV file to write is missing"), false)
