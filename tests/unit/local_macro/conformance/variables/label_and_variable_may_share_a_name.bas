' Labels and variables don't get in each other's way.
'> 5
Sub main()
    Dim done As Long
    done = 5
    GoTo done
    done = 6
done:
    Debug.Print done & ""
End Sub
