-- Plays plucked.flac's tune into a WAV file: a few plucked strings, each a sum of harmonics that
-- fade the faster the higher they are. Anybody may use the sound for anything.
--
--   build/bin/mavrin2 run examples/sounds/plucked.lua plucked.wav
--   build/bin/mavrin2 convert plucked.wav plucked.flac

local RATE <const> = 44100
local SECONDS <const> = 3
local PLUCKED_AT <const> = 0.23 -- where along the string, as a part of its length

-- Start in seconds, pitch in semitones from A2 (110 Hz), place from 0 (left) to 1 (right).
local TUNE <const> = {
  { 0.0, 0, 0.5 }, { 0.2, 12, 0.3 }, { 0.4, 16, 0.7 }, { 0.6, 19, 0.4 },
  { 0.8, 24, 0.6 }, { 1.0, 19, 0.3 }, { 1.2, 16, 0.7 }, { 1.4, 12, 0.4 },
  { 1.6, 5, 0.5 }, { 1.8, 17, 0.7 }, { 2.0, 21, 0.3 }, { 2.2, 24, 0.5 },
}

local function add_string(left, right, start, semitones, place)
  local frequency = 110 * 2 ^ (semitones / 12)
  local first = math.floor(start * RATE)
  for harmonic = 1, 7 do
    local level = 0.30 * math.sin(math.pi * harmonic * PLUCKED_AT) / harmonic
    local step = 2 * math.pi * frequency * harmonic / RATE
    local fading = math.exp(-(1.6 + 1.2 * harmonic) / RATE)
    for frame = first, #left - 1 do
      -- A rise of some 3 ms, so that a string does not begin with a click.
      local rise = math.min(1, (frame - first) / 130)
      local value = level * rise * math.sin(step * (frame - first))
      left[frame + 1] = left[frame + 1] + value * math.sqrt(1 - place)
      right[frame + 1] = right[frame + 1] + value * math.sqrt(place)
      level = level * fading
    end
  end
end

local left, right = {}, {}
for frame = 1, SECONDS * RATE do
  left[frame], right[frame] = 0, 0
end
for _, note in ipairs(TUNE) do
  add_string(left, right, table.unpack(note))
end

local ending <const> = 0.5 * RATE -- the last half second fades to nothing
local samples = {}
for frame = 1, #left do
  local gain = 32767 * math.min(1, (#left - frame) / ending)
  samples[frame] = string.pack("<i2i2", math.floor(left[frame] * gain + 0.5),
    math.floor(right[frame] * gain + 0.5))
end
local data = table.concat(samples)

local name = assert(arg[1], "the name of the WAV file to write is missing")
local file <close> = assert(io.open(name, "wb"))
file:write("RIFF", string.pack("<I4", 36 + #data), "WAVE",
  "fmt ", string.pack("<I4I2I2I4I4I2I2", 16, 1, 2, RATE, RATE * 4, 4, 16),
  "data", string.pack("<I4", #data), data)
