#pragma once

#include <gdal.h>
#include <ogr_srs_api.h>

// GDAL brings more than a hundred libraries with it, which take longer to load than a small inversion takes to write. So it is
// loaded when a grid is first looked at: each of its functions that is used here stands for itself, found in the library.

#ifdef GDAL_LIBRARY_FILE

/// A function of the library, which is loaded with the first. Fails with a `Fault` when there is none.
void * gdal_function(const char * name);

#define GDAL_ON_DEMAND(name)                                                                                                     \
    ([] {                                                                                                                        \
        static const auto function = reinterpret_cast<decltype(&::name)>(gdal_function(#name));                                  \
        return function;                                                                                                         \
    }())

#define CPLErrorReset GDAL_ON_DEMAND(CPLErrorReset)
#define CPLGetErrorHandlerUserData GDAL_ON_DEMAND(CPLGetErrorHandlerUserData)
#define CPLGetLastErrorMsg GDAL_ON_DEMAND(CPLGetLastErrorMsg)
#define CPLGetLastErrorType GDAL_ON_DEMAND(CPLGetLastErrorType)
#define CPLPopErrorHandler GDAL_ON_DEMAND(CPLPopErrorHandler)
#define CPLPushErrorHandler GDAL_ON_DEMAND(CPLPushErrorHandler)
#define CPLPushErrorHandlerEx GDAL_ON_DEMAND(CPLPushErrorHandlerEx)
#define CPLQuietErrorHandler GDAL_ON_DEMAND(CPLQuietErrorHandler)
#define GDALAllRegister GDAL_ON_DEMAND(GDALAllRegister)
#define GDALAttributeRelease GDAL_ON_DEMAND(GDALAttributeRelease)
#define GDALClose GDAL_ON_DEMAND(GDALClose)
#define GDALCreate GDAL_ON_DEMAND(GDALCreate)
#define GDALDataTypeIsComplex GDAL_ON_DEMAND(GDALDataTypeIsComplex)
#define GDALDatasetGetRootGroup GDAL_ON_DEMAND(GDALDatasetGetRootGroup)
#define GDALDimensionGetIndexingVariable GDAL_ON_DEMAND(GDALDimensionGetIndexingVariable)
#define GDALExtendedDataTypeCreate GDAL_ON_DEMAND(GDALExtendedDataTypeCreate)
#define GDALExtendedDataTypeRelease GDAL_ON_DEMAND(GDALExtendedDataTypeRelease)
#define GDALFlushCache GDAL_ON_DEMAND(GDALFlushCache)
#define GDALGetDataTypeSizeBytes GDAL_ON_DEMAND(GDALGetDataTypeSizeBytes)
#define GDALGetDescription GDAL_ON_DEMAND(GDALGetDescription)
#define GDALGetDriverByName GDAL_ON_DEMAND(GDALGetDriverByName)
#define GDALGetDriverShortName GDAL_ON_DEMAND(GDALGetDriverShortName)
#define GDALGetGeoTransform GDAL_ON_DEMAND(GDALGetGeoTransform)
#define GDALGetMaskBand GDAL_ON_DEMAND(GDALGetMaskBand)
#define GDALGetMaskFlags GDAL_ON_DEMAND(GDALGetMaskFlags)
#define GDALGetMetadataItem GDAL_ON_DEMAND(GDALGetMetadataItem)
#define GDALGetRasterBand GDAL_ON_DEMAND(GDALGetRasterBand)
#define GDALGetRasterColorInterpretation GDAL_ON_DEMAND(GDALGetRasterColorInterpretation)
#define GDALGetRasterColorTable GDAL_ON_DEMAND(GDALGetRasterColorTable)
#define GDALGetRasterCount GDAL_ON_DEMAND(GDALGetRasterCount)
#define GDALGetRasterDataType GDAL_ON_DEMAND(GDALGetRasterDataType)
#define GDALGetRasterNoDataValue GDAL_ON_DEMAND(GDALGetRasterNoDataValue)
#define GDALGetRasterOffset GDAL_ON_DEMAND(GDALGetRasterOffset)
#define GDALGetRasterScale GDAL_ON_DEMAND(GDALGetRasterScale)
#define GDALGetRasterXSize GDAL_ON_DEMAND(GDALGetRasterXSize)
#define GDALGetRasterYSize GDAL_ON_DEMAND(GDALGetRasterYSize)
#define GDALGetSpatialRef GDAL_ON_DEMAND(GDALGetSpatialRef)
#define GDALGroupOpenMDArray GDAL_ON_DEMAND(GDALGroupOpenMDArray)
#define GDALGroupRelease GDAL_ON_DEMAND(GDALGroupRelease)
#define GDALIdentifyDriverEx GDAL_ON_DEMAND(GDALIdentifyDriverEx)
#define GDALMDArrayGetAttribute GDAL_ON_DEMAND(GDALMDArrayGetAttribute)
#define GDALMDArrayGetDimensions GDAL_ON_DEMAND(GDALMDArrayGetDimensions)
#define GDALMDArrayGetTotalElementsCount GDAL_ON_DEMAND(GDALMDArrayGetTotalElementsCount)
#define GDALMDArrayRead GDAL_ON_DEMAND(GDALMDArrayRead)
#define GDALMDArrayRelease GDAL_ON_DEMAND(GDALMDArrayRelease)
#define GDALOpenEx GDAL_ON_DEMAND(GDALOpenEx)
#define GDALRasterIO GDAL_ON_DEMAND(GDALRasterIO)
#define GDALReleaseDimensions GDAL_ON_DEMAND(GDALReleaseDimensions)
#define GDALSetGeoTransform GDAL_ON_DEMAND(GDALSetGeoTransform)
#define GDALSetRasterNoDataValue GDAL_ON_DEMAND(GDALSetRasterNoDataValue)
#define OCTDestroyCoordinateTransformation GDAL_ON_DEMAND(OCTDestroyCoordinateTransformation)
#define OCTNewCoordinateTransformation GDAL_ON_DEMAND(OCTNewCoordinateTransformation)
#define OCTTransform GDAL_ON_DEMAND(OCTTransform)
#define OSRClone GDAL_ON_DEMAND(OSRClone)
#define OSRDestroySpatialReference GDAL_ON_DEMAND(OSRDestroySpatialReference)
#define OSRNewSpatialReference GDAL_ON_DEMAND(OSRNewSpatialReference)
#define OSRSetAxisMappingStrategy GDAL_ON_DEMAND(OSRSetAxisMappingStrategy)
#define OSRSetFromUserInput GDAL_ON_DEMAND(OSRSetFromUserInput)

#endif
