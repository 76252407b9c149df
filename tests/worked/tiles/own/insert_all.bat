
rem Clean up any previously merged data files

@if exist qvinv3d_weights.dat del qvinv3d_weights.dat
@if exist qvinv3d.old del qvinv3d.old
@if exist qvinv3d.sus ren qvinv3d.sus qvinv3d.old
@if exist refined.sus copy refined.sus qvinv3d.sus
@if exist error.dat del error.dat

rem Boundaries: 1700.00000 1950.00000 5360.00000 5440.00000
cd tile0201
QVinsert mesh qvinv3d.sus ..\mesh ..\qvinv3d.sus 5 9 3 4 1 4
cd ..

rem Boundaries: 1600.00000 1700.00000 5360.00000 5440.00000
cd tile0101
QVinsert mesh qvinv3d.sus ..\mesh ..\qvinv3d.sus 3 4 3 4 1 4
cd ..


rem Boundaries: 1700.00000 1950.00000 5440.00000 5520.00000
cd tile0202
QVinsert mesh qvinv3d.sus ..\mesh ..\qvinv3d.sus 5 9 5 6 1 4
cd ..

rem Boundaries: 1600.00000 1700.00000 5440.00000 5520.00000
cd tile0102
QVinsert mesh qvinv3d.sus ..\mesh ..\qvinv3d.sus 3 4 5 6 1 4
cd ..


rem Boundaries: 1700.00000 1950.00000 5520.00000 5640.00000
rem cd tile0203
rem QVinsert mesh qvinv3d.sus ..\mesh ..\qvinv3d.sus 5 9 7 9 1 4
rem cd ..

rem Boundaries: 1600.00000 1700.00000 5520.00000 5640.00000
cd tile0103
QVinsert mesh qvinv3d.sus ..\mesh ..\qvinv3d.sus 3 4 7 9 1 4
cd ..


QVerror mag.obs qvinv3d.pre error.dat mesh
