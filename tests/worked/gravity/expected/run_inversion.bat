gzsen3d gzsen3d.inp
gzinv3d gzinv3d.inp
