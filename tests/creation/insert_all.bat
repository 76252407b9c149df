
rem Clean up any previously merged data files

@if exist qvinv3d_weights.dat del qvinv3d_weights.dat
@if exist qvinv3d.old del qvinv3d.old
@if exist qvinv3d.sus ren qvinv3d.sus qvinv3d.old
@if exist refined.sus copy refined.sus qvinv3d.sus
@if exist error.dat del error.dat

rem Boundaries: 1050.12500 1100.12500 5070.00000 5100.00000
cd tile0203
DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus 6 10 15 20 1 25
cd ..

rem Boundaries: 1000.12500 1050.12500 5070.00000 5100.00000
rem cd tile0103
rem DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus 1 5 15 20 1 25
rem cd ..


rem Boundaries: 1050.12500 1100.12500 5035.00000 5070.00000
rem cd tile0202
rem DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus 6 10 8 14 1 25
rem cd ..

rem Boundaries: 1000.12500 1050.12500 5035.00000 5070.00000
cd tile0102
DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus 1 5 8 14 1 25
cd ..


rem Boundaries: 1050.12500 1100.12500 5000.00000 5035.00000
cd tile0201
DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus 6 10 1 7 1 25
cd ..

rem Boundaries: 1000.12500 1050.12500 5000.00000 5035.00000
cd tile0101
DMXinsert mesh maginv3d.sus ..\mesh ..\maginv3d.sus 1 5 1 7 1 25
cd ..


QVerror mag.obs qvinv3d.pre error.dat mesh
