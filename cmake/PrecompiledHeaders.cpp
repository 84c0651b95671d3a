// Only what is included before it matters: the headers that every target shares.
