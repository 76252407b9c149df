
rem Clean up any previously merged data files

@if exist qvinv3d_weights.dat del qvinv3d_weights.dat
@if exist qvinv3d.old del qvinv3d.old
@if exist qvinv3d.den ren qvinv3d.den qvinv3d.old
@if exist refined.den copy refined.den qvinv3d.den
@if exist error.dat del error.dat

rem Boundaries: 1600.00000 1700.00000 5520.00000 5640.00000
cd tile0103
DMXinsert mesh gzinv3d.den ..\mesh ..\gzinv3d.den 3 4 7 9 1 5 1 2
cd ..

rem Boundaries: 1600.00000 1700.00000 5440.00000 5520.00000
rem cd tile0102
rem DMXinsert mesh gzinv3d.den ..\mesh ..\gzinv3d.den 3 4 5 6 1 5 1 2
rem cd ..

rem Boundaries: 1600.00000 1700.00000 5360.00000 5440.00000
cd tile0101
DMXinsert mesh gzinv3d.den ..\mesh ..\gzinv3d.den 3 4 3 4 1 5 1 2
cd ..


rem Boundaries: 1700.00000 1950.00000 5520.00000 5640.00000
cd tile0203
DMXinsert mesh gzinv3d.den ..\mesh ..\gzinv3d.den 5 9 7 9 1 5 1 2
cd ..

rem Boundaries: 1700.00000 1950.00000 5440.00000 5520.00000
cd tile0202
DMXinsert mesh gzinv3d.den ..\mesh ..\gzinv3d.den 5 9 5 6 1 5 1 2
cd ..

rem Boundaries: 1700.00000 1950.00000 5360.00000 5440.00000
cd tile0201
DMXinsert mesh gzinv3d.den ..\mesh ..\gzinv3d.den 5 9 3 4 1 5 1 2
cd ..


QVerror grav.obs qvinv3d.pre error.dat mesh
