gzsen3d gzsen3d.inp
