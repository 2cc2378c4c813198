/** How each kind of plot is read, for who sees one for the first time. */
export const help = {
  map: 'Each arrow stands at a dot and points down where the left dot lies lower than the right one. Noise points anywhere; neighbours that agree mean a misalignment: all the same way is a turn about the horizontal axis or a shift of the rows, growing from left to right is a roll, growing from top to bottom is a focal length. What remains shows the row differences less those that the told causes would make.',
  histogram:
    'How many dots have which value. The line is the normal distribution of the same mean and standard deviation: flat or two-humped bars are no noise; look at the map. Dashed lines mark a limit on the largest one, and, without judging, the bound beyond which dy_ratio counts dots. Drag across bars to choose their dots in every plot.',
  course:
    'Mean of the dots in each stripe of the picture with their standard deviation, and the line of least squares through all of them. A line that rises or falls is a misalignment; a bow comes from the lens model.',
  cells:
    'Each cell is a dot at its place on the board. What stays with a place of the board when the picture moves comes from the board.',
  residual:
    'How far the right camera saw a dot from where the triangulated point projects. What stays with a place of the picture when the board moves comes from the camera.',
  distances:
    'Measured less true distance of pairs of dots, by the true distance: mean, standard deviation and extremes of each range. A mean that grows with the distance is an error of scale, of the focal length or the baseline; scatter comes from the dots.',
  depth:
    'Measured depth less that of the fitted board, along the axis of the left camera. A bowl or a saddle comes from the lens model or the focal length, a slope from a turn of a camera.',
  disparity:
    'How far the dots lie apart in the columns of both rectified pictures. What was not in this range was not judged: other distances have other disparities.',
  board:
    'The board as it was measured, laid onto the true one by the best rigid motion, its errors enlarged. Turn it by dragging or with the arrow keys. A bowl or a saddle comes from the lens model or the focal length; scatter comes from the dots.',
  seen: 'The dots that were found and numbered in both pictures. A row or corner without marks was not found or left out there.',
} as const;
